#include "VeilshotCore/Analysis/TextRecognition/ReadingTexts.h"

#include "VeilshotCore/Analysis/RegularExpression.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace Veilshot {

using enum RegularExpression::CaseSensitivity;

bool mayBeName(const QString& text) {
    static const RegularExpression expression(
        uR"(^\p{Lu}[\p{L}'’.-]*(?:,? (?:\p{Lu}[\p{L}'’.-]*|\p{Ll}{1,3})){0,4}$)", sensitive);
    return expression.hasMatch(text);
}

bool mayBeStreet(const QString& text) {
    static const RegularExpression expression(
        uR"(^(?=.*(?<!\d)\d{1,5}\p{L}?(?![\p{L}\d]))(?=.*\p{L}{3})[^@:;]{6,60}$)");
    return expression.hasMatch(text);
}

bool isPlace(const QString& text) {
    static const RegularExpression expression(
        uR"(^(?:(?:[A-Z]{1,2}-)?(?:(?!19|20)\d{4}|(?:19|20)\d\d(?= Frederiksberg| København)|\d{5,7}|\d{3} \d{2,3}|\d{2}-\d{3}|\d{4,5}-\d{3}|\d{4} [A-Z]{2}) \p{Lu}[\p{L}.' -]{2,30})"
        uR"(|\p{Lu}[\p{L}.' -]{2,30},? (?:[A-Z]{2,3},? )?(?:\d{5}(?:-\d{4})?|(?!19|20)\d{4}|\d{6,7}|\d{3} \d{3}|\d{3}-\d{4}|[A-Z]{1,2}\d[A-Z\d]? ?\d[A-Z]{2}|[A-Z]\d[A-Z] ?\d[A-Z]\d|[A-Z]\d[\dW] [A-Z\d]{4}))$)",
        sensitive);
    return expression.hasMatch(text);
}

bool isTown(const QString& text) {
    static const RegularExpression expression(uR"(^\p{Lu}[\p{L}.' -]{2,30},?$)", sensitive);
    return expression.hasMatch(text);
}

bool isBarePostcode(const QString& text) {
    static const RegularExpression expression(
        uR"(^(?:\d{5}(?:-\d{4})?|(?!19|20)\d{4}|\d{6,7}|\d{3} \d{2,3}|\d{3}-\d{4}|[A-Z]{1,2}\d[A-Z\d]? ?\d[A-Z]{2}|[A-Z]\d[A-Z] ?\d[A-Z]\d|[A-Z]\d[\dW] [A-Z\d]{4})$)",
        sensitive);
    return expression.hasMatch(text);
}

bool goesOnInCell(const QString& upper, const QString& lower) {
    static const RegularExpression restOfAddress(
        uR"(^(?:\d{4,5}(?:-\d{4})?|[A-Z]{1,2}\d[A-Z\d]? ?\d[A-Z]{2}|(?:st|kl|\d{1,2})\.? ?(?:sal)?,? ?(?:t[vh]|mf)\.?)$)");
    static const RegularExpression restOfNumber(uR"(^\d{2,4}(?: \d{2})?$)");
    static const RegularExpression begunNumber(uR"([\p{L}+,].*\d{2} \d{2,4}$)");
    static const RegularExpression postcode(uR"(, \d{4,5}$)");
    static const RegularExpression begunStreet(uR"(\p{L}{3}[^,]* \d{1,4}[A-Za-z]?,$)");
    static const RegularExpression word(uR"(\p{L}{2})");
    return (begunStreet.hasMatch(upper) && isTown(lower)) ||
           (restOfAddress.hasMatch(lower) && word.hasMatch(upper)) ||
           (restOfNumber.hasMatch(lower) && begunNumber.hasMatch(upper)) ||
           (postcode.hasMatch(upper) && isTown(lower));
}

bool goesOnInText(const QString& upper, const QString& lower) {
    static const RegularExpression begunAddress(uR"(\d.*,$)");
    static const RegularExpression place(uR"(^(?:[A-Z]{1,2}-)?\d{4,5} \p{Lu}\p{Ll})", sensitive);
    static const std::pair<RegularExpression, RegularExpression> pairsOfDigits[] = {
        {RegularExpression(uR"((?<!\d )\b\d{2}$)"), RegularExpression(uR"(^\d{2} \d{2} \d{2}(?! ?\d))")},
        {RegularExpression(uR"((?<!\d )\b\d{2} \d{2}$)"), RegularExpression(uR"(^\d{2} \d{2}(?! ?\d))")},
        {RegularExpression(uR"((?<!\d )\b\d{2} \d{2} \d{2}$)"), RegularExpression(uR"(^\d{2}(?! ?\d))")},
    };
    static const RegularExpression begunPlace(uR"(\d.*, \d{4,5}$)");
    static const RegularExpression town(uR"(^\p{Lu}\p{Ll}{2})", sensitive);
    static const RegularExpression begunState(uR"(\d.*\p{L}, [A-Z]{2}$)", sensitive);
    static const RegularExpression postcode(uR"(^\d{5}(?![\d,.]?\d))");
    static const RegularExpression word(uR"(\p{L}{2})");
    static const RegularExpression begunAccount(uR"(\b[A-Z]{2}\d{2}(?: [A-Z\d]{4}){0,6}$)", sensitive);
    static const RegularExpression restOfAccount(uR"(^(?=[A-Z\d ]{0,6}\d)[A-Z\d]{4} [A-Z\d]{1,4})",
                                                 sensitive);
    static const RegularExpression begunTown(uR"(\d.*, \d{4} \p{Lu}\p{Ll}{2,}$)", sensitive);
    static const RegularExpression district(uR"(^(?:NV|SV|NØ|SØ|N|S|Ø|V|K|C|M)(?=[.,!?;]|$))", sensitive);
    static const RegularExpression begunHouse(uR"(\p{Lu}\p{Ll}+$)", sensitive);
    static const RegularExpression restOfHouse(uR"(^\p{Lu}\p{Ll}+, \d{1,4}[A-Za-z]? \p{Lu}\p{Ll})",
                                               sensitive);
    return (begunAccount.hasMatch(upper) && restOfAccount.hasMatch(lower)) ||
           (begunHouse.hasMatch(upper) && restOfHouse.hasMatch(lower)) ||
           (begunTown.hasMatch(upper) && district.hasMatch(lower)) ||
           (begunAddress.hasMatch(upper) && place.hasMatch(lower)) ||
           (begunPlace.hasMatch(upper) && town.hasMatch(lower)) ||
           (begunState.hasMatch(upper) && postcode.hasMatch(lower)) ||
           (word.hasMatch(upper) && std::ranges::any_of(pairsOfDigits, [&](const auto& pairs) {
                return pairs.first.hasMatch(upper) && pairs.second.hasMatch(lower);
            }));
}

bool isTornToken(const QString& upper, const QString& lower) {
    static const RegularExpression begunLink(uR"((?:[\w.+-]@|://|www\.)\S*[-./_?&=@]$)");
    static const RegularExpression restOfLink(uR"(^[\w%~.=&?-]*[\w/](?=\s|$))");
    static const RegularExpression linkToEnd(uR"(://\S*\w$)");
    static const RegularExpression restWithSlash(
        uR"(^(?!(?:and|or|og|eller|he|she)/)[\w.-]+/[\w%~.=&?/-]*\w(?=\s|$))");
    static const RegularExpression begunMailbox(uR"([\p{L}\d]{2}[-._]$)");
    static const RegularExpression restOfMail(uR"(^[\w.+-]+@[\w-]+\.\w)");
    static const RegularExpression begunKey(uR"((?<!\S)(?=\S*\d)[\w-]{8,}-$)");
    static const RegularExpression restOfKey(uR"(^(?=\S*\d)[\w-]{6,})");
    return (linkToEnd.hasMatch(upper) && restWithSlash.hasMatch(lower)) ||
           (begunLink.hasMatch(upper) && restOfLink.hasMatch(lower)) ||
           (begunMailbox.hasMatch(upper) && restOfMail.hasMatch(lower)) ||
           (begunKey.hasMatch(upper) && restOfKey.hasMatch(lower));
}

bool isRowOfWords(const QString& text) {
    static const RegularExpression expression(uR"(^\p{Ll}{3,10}(?: \p{Ll}{3,10}){3,11}$)", sensitive);
    return expression.hasMatch(text);
}

bool hasLabel(const QString& text) {
    static const RegularExpression expression(uR"(\p{L}\s*[:#])");
    return expression.hasMatch(text);
}

} // namespace Veilshot
