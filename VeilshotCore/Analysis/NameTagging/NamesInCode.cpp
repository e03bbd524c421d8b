#include "VeilshotCore/Analysis/NameTagging/NamesInCode.h"

#include "VeilshotCore/Analysis/RegularExpression.h"

#include <algorithm>
#include <iterator>

namespace Veilshot {

std::vector<TextRange> namesInCode(QStringView text) {
    // Quotes are read as whichever of their kind; the operator leaves out "%s" and the like by the capital.
    static const RegularExpression assignment(
        uR"((?i:(?<![a-z])(?:(?:first|last|full|given|family|middle|maiden)[_-]?name|surname|fornavn|efternavn)))"
        uR"(["'’”]?\]?\s{0,2}(?:[=!<>]{1,3}|:=?|(?i:like|is|eq|ne))\s{0,2}["'‘’“”]{1,2}(\p{Lu}[\p{L}'’. -]{1,40}?)["'‘’“”])",
        RegularExpression::CaseSensitivity::sensitive);
    const std::vector<RegularExpression::Match> matches = assignment.matches(text);
    std::vector<TextRange> names;
    std::ranges::transform(matches, std::back_inserter(names),
                           [](const RegularExpression::Match& match) { return match.groups.front(); });
    return names;
}

} // namespace Veilshot
