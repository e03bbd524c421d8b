#pragma once

#include "VeilshotCore/Analysis/NameTagging/NameLexicon.h"
#include "VeilshotCore/Analysis/NameTagging/NameTokenizer.h"

#include <QStringView>

namespace Veilshot {

/// How much a word by itself speaks for being part of a name, on a scale of our own: about 3 for a common
/// name that means nothing else, about 0 for a word nobody knows, below for an ordinary word. Evidence adds
/// up over the words of a name and its surroundings.
struct NameEvidence {
    double asFirstName = 0;
    double asLastName = 0;
    double alone = 0;
};

/// What the lists know of a word in a line: looks into hyphenated words, behind a Danish genitive s and
/// behind the usual confusions of l, I and 1.
WordTraits lineWordTraits(const NameLexicon& lexicon, const NameToken& token, QStringView line);

NameEvidence nameEvidence(const NameToken& token, WordTraits traits);

inline constexpr WordTraits anyFirstName = WordTrait::strongFirstName | WordTrait::weakFirstName;
inline constexpr WordTraits anyLastName = WordTrait::strongLastName | WordTrait::weakLastName;
inline constexpr WordTraits anyName = anyFirstName | anyLastName;
/// Traits of words with a meaning of their own.
inline constexpr WordTraits anyMeaning =
    WordTrait::frequentWord | WordTrait::word | WordTrait::rareWord | WordTrait::danishWord |
    WordTrait::rareDanishWord | WordTrait::place | WordTrait::calendar | WordTrait::product |
    WordTrait::title | WordTrait::role | WordTrait::label | WordTrait::greeting | WordTrait::nameBefore |
    WordTrait::namePossible | WordTrait::personVerb | WordTrait::auxiliary | WordTrait::particle |
    WordTrait::organisation | WordTrait::beforePlace | WordTrait::locative | WordTrait::functionWord;

} // namespace Veilshot
