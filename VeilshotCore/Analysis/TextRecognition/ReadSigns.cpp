#include "VeilshotCore/Analysis/TextRecognition/ReadSigns.h"

#include "VeilshotCore/Analysis/RegularExpression.h"

#include <algorithm>

namespace Veilshot {

namespace {

using enum RegularExpression::CaseSensitivity;

constexpr QChar nonBreakingHyphen(0x2011);
constexpr QChar nonBreakingBlank(0x00A0);

/// Dates and numbers that nobody can be called on, their signs as groups.
void settleNumbers(QString& text) {
    static const RegularExpression expressions[] = {
        // a date with a time of day, maybe a nine for its zero
        RegularExpression(
            uR"((?<![\d-])(?:(?:19|20)\d\d(-)[019]\d(-)[0-3]\d|[0-3]\d(-)[019]\d(-)(?:19|20)\d\d))"
            uR"((?=[T_ ]{1,2}[0-2]?\d[:.][0-5]\d))"),
        // behind a number sign; thousands
        RegularExpression(uR"((?<=#)\d+(-)\d+(?![\d-]))"
                          uR"(|(?<![\d+()\p{L}-] ?)[1-9]( )\d{3}( )\d{3}(?![\d()-]| [\d(-]))"),
        // status and size in the log of a web server
        RegularExpression(uR"((?<=HTTP/\d(?:\.\d)?["”'] )\d{3}( )\d+)"),
        // from year to year
        RegularExpression(uR"((?<![\d-])(?:19|20)\d\d ?(-) ?(?:19|20)\d\d(?![\d-]))"),
        // what has a number of its own
        RegularExpression(
            uR"((?<!\p{L})(?:order|ordre|bestilling|booking|invoice|faktura|ticket|case|sag|sags|parcel|pakke|package)"
            uR"(|tracking|shipment|forsendelse|batch|build|version|revision|release|ref|reference|po|item|vare|sku)"
            uR"(|part|model|serial|serie|job|brev|trace|message|receipt|kvittering)(?:[ -]?(?:no|nr|number|nummer|id|ref))"
            uR"((?!\p{L})\.?|reference)?[:\s]{0,2}[A-Z]{0,4}\d+(-)\d+(?:(-)\d+)?(?![\d-]| \d))"),
    };
    for (const RegularExpression& expression : expressions) {
        for (const auto& match : expression.matches(text)) {
            for (const TextRange sign : match.groups) {
                if (sign.location >= 0)
                    text[sign.location] = text[sign.location] == u'-' ? nonBreakingHyphen : nonBreakingBlank;
            }
        }
    }
}

/// Dates of late, unless somebody was born on them.
void settleDates(QString& text) {
    static const RegularExpression birth(uR"(\bborn\b|birth|\bdob\b|\bd\.o\.b|født|fødsel|\bcpr)");
    static const RegularExpression date(
        uR"((?<![\d-])(?:20(?:1[89]|[23]\d)(-)[01]\d(-)[0-3]\d|[0-3]\d(-)[01]\d(-)20(?:1[89]|[23]\d))(?![\d-]| \d\d \d))");
    if (birth.hasMatch(text))
        return;
    for (const auto& match : date.matches(text)) {
        for (const TextRange sign : match.groups) {
            if (sign.location >= 0)
                text[sign.location] = nonBreakingHyphen;
        }
    }
}

/// "Håkon @degård": names with Ø, which handles hardly begin like.
void settleLetters(QString& text) {
    static const RegularExpression expression(
        uR"((?<=\p{Lu}\p{Ll}{1,20} )(@)(?=(?:deg[aå]{1,2}rd|sterg[aå]{1,2}rd|stg[aå]{1,2}rd|sterby|stby|sterlund|rsted|rum|rskov|vrebø|vlisen|llg[aå]+rd|zt[uü]rk|zdemir|zkan)(?![\p{L}\d_@-]|\.\w)))",
        sensitive);
    for (const TextRange sign : expression.ranges(text))
        text[sign.location] = u'Ø';
}

/// "+2@ 2 555@ 1188": the zero with a stroke or a dot of a programmer's font. Neither in a mail address, a
/// mention or a version ("tool@2.1") nor in front of a price ("12 @24.50").
void settleZeros(QString& text) {
    constexpr qsizetype fewestDigits = 6;
    static const RegularExpression number(
        uR"((?<![\p{L}\p{N}_@#$€£][.+_-]?)(?>(?:[A-Z]{1,3}-?)?[+(]{0,2}[\d@Ø]+(?:[ .()/-]{1,3}[\d@Ø]+)*)(?![.-]?[\p{L}_]))",
        sensitive);
    static const RegularExpression zero(
        uR"((?<=\d)@+|(?<=\d)Ø+(?=\d)|(?<=[+(/.-])[@Ø]+(?=\d)|(?<=\d\d )[@Ø]+(?=\d{1,3}(?![\d.,:])))",
        sensitive);
    if (!text.contains(u'@') && !text.contains(u'Ø'))
        return;
    for (const TextRange range : number.ranges(text)) {
        const QStringView digits = QStringView(text).sliced(range.location, range.length);
        const auto isDigit = [](QChar character) { return character.isDigit(); };
        if (std::ranges::count_if(digits, isDigit) < fewestDigits)
            continue;
        for (const TextRange zeros : zero.ranges(text.sliced(range.location, range.length)))
            text.replace(range.location + zeros.location, zeros.length, QString(zeros.length, u'0'));
    }
}

} // namespace

void settleSigns(QString& text) {
    settleZeros(text);
    settleNumbers(text);
    settleDates(text);
    settleLetters(text);
}

} // namespace Veilshot
