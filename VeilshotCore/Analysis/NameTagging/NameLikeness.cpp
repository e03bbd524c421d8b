#include "VeilshotCore/Analysis/NameTagging/NameLikeness.h"

#include "VeilshotCore/Analysis/NameTagging/NameSpelling.h"

namespace Veilshot {

bool isNameLike(const NameWord& word) {
    constexpr double least = -1.5;
    return word.isShapedLikeName() && !word.is(anyMeaning) &&
           (word.is(anyName) || spellingOfName(word.folded) >= least);
}

bool isFirstNameLike(const NameWord& word) {
    const bool isCommon = word.letterCase == NameToken::LetterCase::title &&
                          word.is(WordTrait::strongFirstName) && !word.is(anyMeaning & ~ordinaryMeaning);
    return isCommon || isNameLike(word);
}

} // namespace Veilshot
