#include "VeilshotCore/Analysis/DataDetection/LetteredNumber.h"

#include "VeilshotCore/Analysis/RegularExpression.h"
#include "VeilshotCore/Analysis/TellingLabel.h"

#include <algorithm>

namespace Veilshot {

namespace {

constexpr qsizetype longestSeries = 4;
constexpr auto sensitive = RegularExpression::CaseSensitivity::sensitive;

bool isNumber(QStringView text) {
    return !text.isEmpty() && text.front().isDigit() && text.back().isDigit() &&
           std::ranges::all_of(text,
                               [](QChar sign) { return sign.isDigit() || sign == u' ' || sign == u'-'; });
}

/// Words, currencies, parts of a date and what is called by a number that is nobody's.
bool isOtherWord(QStringView letters) {
    static const RegularExpression expression(
        uR"(^(?:NO|NR|NUM|TEL|TLF|MOB|CELL|FAX|SMS|PH|PO|ID|KR|DKK|SEK|NOK|EUR|USD|GBP|CHF|CAD|AUD|JPY|PLN|AM|PM)"
        uR"(|JAN|FEB|MAR|APR|MA[JY]|JUNE?|JULY?|AUG|SEPT?|O[CK]T|NOV|DEC|MON|TUE|WED|THU|FRI|SAT|SUN|UTC|GMT|CET)"
        uR"(|AND|OR|TO|OF|AT|ON|IN|BY|TIL|FRA|OG|THE|FOR|CVR|EAN|ISBN|ISSN|UPC|GTIN|SKU|REF|ORD|INV|VAT|SE|IP|PIN|REG)"
        uR"(|CALL|RING|TEXT|HOME|WORK|CODE|KODE|DATE|BORN|PAGE|SIDE|ITEM|CASE|BUILD|RFC|ISO|USB|DIN|A/C|ACC|ACCT|KTO|CARD)$)",
        sensitive);
    return expression.hasMatch(letters) || isLabelOfDetail(letters);
}

} // namespace

TextRange withLettersOfNumber(QStringView line, TextRange number) {
    static const RegularExpression before(uR"((?<![\p{L}\d.'’/@_-])(?![TMF] )(\p{Lu}{1,4}) ?$)", sensitive);
    static const RegularExpression behind(uR"((?!GB|MB|TB|KB|KG|KM|CM|MM|ML|EU)\p{Lu}{1,2}(?![\p{L}\d/@_-]))",
                                          sensitive);
    if (!isNumber(line.sliced(number.location, number.length)))
        return number;
    qsizetype end = number.end();
    if (const auto letters = behind.matchAt(line, end))
        end = letters->range.end();
    const qsizetype from = std::max<qsizetype>(0, number.location - longestSeries - 2);
    const auto series = before.firstMatch(line.sliced(from, number.location - from));
    qsizetype start = number.location;
    if (series && !isOtherWord(line.sliced(from + series->groups[0].location, series->groups[0].length)))
        start = from + series->range.location;
    return {start, end - start};
}

} // namespace Veilshot
