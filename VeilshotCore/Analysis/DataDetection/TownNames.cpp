#include "VeilshotCore/Analysis/DataDetection/TownNames.h"

#include <QHash>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// Names shorter than these are words as soon as a letter of theirs is another.
constexpr qsizetype shortestFolded = 5;
constexpr qsizetype shortestMisread = 8;

/// In lower case, with one spelling for the letters that are taken for each other.
QString folded(QStringView name) {
    static const QHash<QChar, QString> spellings{{u'æ', u"ae"_s}, {u'ø', u"o"_s}, {u'ł', u"l"_s},
                                                 {u'0', u"o"_s},  {u'1', u"l"_s}, {u'|', u"l"_s}};
    QString folded;
    for (const QChar character : name.toString().toLower()) {
        const QString base = character.decomposition();
        folded += spellings.value(character, base.isEmpty() ? QString(character) : base.first(1));
    }
    return folded.replace(u"aa"_s, u"a"_s);
}

/// With the same beginning: one letter is another or was not read.
bool lacksOneLetter(QStringView name, QStringView town) {
    if (name.front() != town.front() || (name.size() != town.size() && name.size() + 1 != town.size()))
        return false;
    const auto [inName, inTown] = std::ranges::mismatch(name, town);
    if (inTown == town.end())
        return false;
    return std::equal(inName + (name.size() == town.size() ? 1 : 0), name.end(), inTown + 1, town.end());
}

} // namespace

TownNames::TownNames(QStringView names) {
    for (const QStringView town : names.split(u", "_s)) {
        m_exact.insert(town.toString());
        if (town.size() >= shortestFolded)
            m_folded.insert(folded(town));
    }
}

bool TownNames::contains(QStringView name) const {
    if (m_exact.contains(name.toString().toLower()))
        return true;
    const QString wanted = folded(name);
    return m_folded.contains(wanted) ||
           (wanted.size() >= shortestMisread &&
            std::ranges::any_of(m_folded, [&](const QString& town) { return lacksOneLetter(wanted, town); }));
}

} // namespace Veilshot
