#pragma once

#include "VeilshotCore/Analysis/TextRange.h"

#include <QString>
#include <vector>

namespace Veilshot {

/// A line written anew for a search, with the blanks that the reading lost or without those it made up. Knows
/// where each of its characters stood.
class RewrittenLine {
public:
    struct Edit {
        TextRange range; ///< of the original; empty where something is put in
        QString text;    ///< what stands there instead
    };

    /// Edits in any order; of two that overlap or begin at the same place the one that comes first counts.
    RewrittenLine(QStringView original, std::vector<Edit> edits);

    const QString& text() const { return m_text; }
    bool isChanged() const { return m_isChanged; }
    /// Where a range of `text()`, which must not be empty, stands in the original.
    TextRange original(TextRange range) const;

private:
    QString m_text;
    /// For each character of the text what it stands for.
    std::vector<TextRange> m_origins;
    bool m_isChanged = false;
};

} // namespace Veilshot
