#include "VeilshotCore/Analysis/DataDetection/AddressSpacing.h"

#include "VeilshotCore/Analysis/RegularExpression.h"

#include <QString>
#include <vector>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

struct Borders {
    /// Places between two characters where a blank belongs.
    std::vector<RegularExpression> empty;
    /// A British postcode behind its town. Group 1 is its second half.
    RegularExpression britishPostcode{
        uR"(\p{L}{3}[^,]{0,20},\s?(?:\p{Lu}[\p{L}’'-]+\s?){0,4}?[A-Z]{1,2}\d[\dA-Z]?(\d[A-Z]{2})\b)",
        RegularExpression::CaseSensitivity::sensitive};

    static const Borders& shared() {
        static const Borders borders;
        return borders;
    }

private:
    Borders() {
        const QString patterns[] = {
            // Behind a comma, except in a number: "128A,5. th", "Flat 12,114 Lower Marsh", "177,2300 Ry".
            uR"((?<=,)(?=\p{L})|(?<=\p{L},)(?=\d))"_s,
            uR"((?<=\d,)(?=\d{4}\s?\p{Lu}\p{L}|\d{1,2}\.?\s?(?:tv|th|mf)\b))"_s,
            uR"((?<=\b(?:Flat|Apt|Apartment|Unit|Suite)\s?\d{1,4},)(?=\d))"_s,
            // "LowerMarsh", "St.Louis", "GlasgowG12", "HawthorneBlvd", but not "TextView".
            uR"((?<=(?<!\bMc|\bMac)\p{Ll})(?=\p{Lu}\p{Ll}(?!ew\b|th\b|n\b|op\b|ose\b)))"_s,
            uR"((?<=\p{Ll}\.)(?=\p{Lu}\p{Ll})|(?<=\p{Ll}{2})(?=[A-Z]{1,2}\d|(?:NE|NW|SE|SW)\b))"_s,
            // "Lyngbakken79", "Suite749", "OR97455".
            uR"((?<=\p{L}\p{Ll})(?=\d{1,4}[A-Z]?(?!\w))|(?<=[,\s][A-Z]{2})(?=\d{5}\b))"_s,
            // "155The Crescent", "9990Skagen", "3373SE".
            uR"((?<=(?<![\w.])\d{1,6})(?=\p{Lu}\p{Ll}{2}|(?:NE|NW|SE|SW)\b))"_s,
        };
        for (const QString& pattern : patterns)
            empty.emplace_back(pattern, RegularExpression::CaseSensitivity::sensitive);
    }
};

} // namespace

RewrittenLine withBlanksOfAddresses(QStringView line) {
    const Borders& borders = Borders::shared();
    std::vector<RewrittenLine::Edit> blanks;
    for (const RegularExpression& border : borders.empty) {
        for (const TextRange range : border.ranges(line))
            blanks.push_back({range, u" "_s});
    }
    for (const auto& match : borders.britishPostcode.matches(line))
        blanks.push_back({{match.groups[0].location, 0}, u" "_s});
    return {line, std::move(blanks)};
}

} // namespace Veilshot
