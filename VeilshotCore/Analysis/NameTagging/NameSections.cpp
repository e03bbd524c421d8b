#include "VeilshotCore/Analysis/NameTagging/NameSections.h"

#include <algorithm>

namespace Veilshot {

namespace {

bool isBlankAt(QStringView line, qsizetype at) {
    return at < 0 || at >= line.size() || line[at].isSpace();
}

/// Fields without blanks between them, as in "ida:x:1004:1004:Ida Lund,,,:/home/ida".
bool isRecord(QStringView line) {
    qsizetype tight = 0;
    for (qsizetype at = 1; at + 1 < line.size(); ++at)
        tight += line[at] == u':' && !isBlankAt(line, at - 1) && !isBlankAt(line, at + 1) ? 1 : 0;
    return tight >= 4;
}

/// Whether the quotation mark encloses a value, as in "name": "Ida Lund", and not a title in a sentence.
bool isMarkOfValue(QStringView line, qsizetype at) {
    const QStringView before = line.first(at).trimmed();
    const QStringView behind = line.sliced(at + 1).trimmed();
    return before.isEmpty() || behind.isEmpty() || QStringView(u":=,([{").contains(before.back()) ||
           QStringView(u":;,)]}").contains(behind.front());
}

/// Where the sign that ends a section at this place ends itself; the place itself if there is none.
qsizetype endOfSign(QStringView line, qsizetype at, bool isRecord) {
    constexpr QStringView always = u"·•|│()[]{}<>→»«*;";
    constexpr QStringView quotes = u"“”„\"";
    constexpr QStringView betweenBlanks = u"-–—+~/";
    const QChar sign = line[at];
    if (always.contains(sign))
        return at + 1;
    if (betweenBlanks.contains(sign) && isBlankAt(line, at - 1) && isBlankAt(line, at + 1))
        return at + 1;
    if (quotes.contains(sign) && isMarkOfValue(line, at))
        return at + 1;
    if (isRecord && (sign == u':' || sign == u','))
        return at + 1;
    if (sign == u'@') {
        qsizetype end = at + 1;
        while (end < line.size() && !line[end].isSpace())
            ++end;
        return end;
    }
    return at;
}

} // namespace

std::vector<TextRange> nameSections(QStringView line) {
    std::vector<TextRange> sections;
    qsizetype start = 0;
    const auto close = [&](qsizetype end) {
        while (start < end && line[start].isSpace())
            ++start;
        while (end > start && line[end - 1].isSpace())
            --end;
        if (end > start && end - start < line.size())
            sections.push_back({start, end - start});
    };
    const bool isOfFields = isRecord(line);
    for (qsizetype at = 0; at < line.size();) {
        const qsizetype end = endOfSign(line, at, isOfFields);
        if (end == at) {
            ++at;
            continue;
        }
        close(at);
        start = at = end;
    }
    close(line.size());
    return sections;
}

} // namespace Veilshot
