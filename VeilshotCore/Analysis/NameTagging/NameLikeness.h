#pragma once

#include "VeilshotCore/Analysis/NameTagging/NameLine.h"

namespace Veilshot {

/// Meanings in which few lines use a word.
inline constexpr WordTraits unusualMeaning =
    WordTrait::word | WordTrait::rareWord | WordTrait::danishWord | WordTrait::rareDanishWord;

/// Meanings that a name may have beside: what a word of a language is, a month, a place, "Will".
inline constexpr WordTraits ordinaryMeaning = unusualMeaning | WordTrait::frequentWord |
                                              WordTrait::auxiliary | WordTrait::calendar |
                                              WordTrait::namePossible | WordTrait::place;

/// A capitalized word that is no other word: a listed name, or one that nobody knows but that is spelt like
/// one.
bool isNameLike(const NameWord& word);

/// As above, or a common first name that means something else as well: "Grace".
bool isFirstNameLike(const NameWord& word);

} // namespace Veilshot
