#include "VeilshotCore/Analysis/TextRecognition/ReadSigns.h"

#include "VeilshotCore/Analysis/RegularExpression.h"

namespace Veilshot {

void settleSigns(QString& text) {
    static const RegularExpression joinedDigits(
        uR"((?<![\d-])(?:(?:19|20)\d\d(-)[01]\d(-)[0-3]\d|[0-3]\d(-)[01]\d(-)(?:19|20)\d\d))"
        uR"((?=[T_ ]{1,2}[0-2]?\d[:.][0-5]\d))"
        uR"(|(?<=#)\d+(-)\d+(?![\d-])|(?<![\d+()\p{L}-] ?)[1-9]( )\d{3}( )\d{3}(?![\d()-]| [\d(-]))");
    static const RegularExpression misreadLetter(
        uR"((?<=\p{Lu}\p{Ll}{1,20} )(@)(?=\p{Ll}{3,}(?![\p{L}\d_@-]|\.\w)))",
        RegularExpression::CaseSensitivity::sensitive);
    constexpr QChar nonBreakingHyphen(0x2011);
    constexpr QChar nonBreakingBlank(0x00A0);
    for (const auto& match : joinedDigits.matches(text)) {
        for (const TextRange sign : match.groups) {
            if (sign.location >= 0)
                text[sign.location] = text[sign.location] == u'-' ? nonBreakingHyphen : nonBreakingBlank;
        }
    }
    for (const TextRange sign : misreadLetter.ranges(text))
        text[sign.location] = u'Ø';
}

} // namespace Veilshot
