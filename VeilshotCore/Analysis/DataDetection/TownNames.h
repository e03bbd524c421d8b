#pragma once

#include <QSet>
#include <QString>

namespace Veilshot {

/// A list of the names of towns that puts up with misread letters.
class TownNames {
public:
    /// In lower case, separated by commas and blanks.
    explicit TownNames(QStringView names);

    /// Whether these words, in any case, are one of the names; in all but the shortest a letter may have lost
    /// its accent ("Norresundby" for "Nørresundby"), in a long one any single letter may be wrong or gone.
    bool contains(QStringView name) const;

private:
    QSet<QString> m_exact;
    QSet<QString> m_folded;
};

} // namespace Veilshot
