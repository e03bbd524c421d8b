#pragma once

#include "VeilshotCore/Analysis/TextRange.h"

#include <QStringView>
#include <string>
#include <vector>

namespace Veilshot {

/// A piece of a line as the name tagger sees it.
struct NameToken {
    enum class Kind {
        word,        ///< letters, possibly with digits that recognition may have read for letters
        number,      ///< digits only
        possessive,  ///< the ’s that ends an English word
        punctuation, ///< one mark, or several of the same in a row
    };
    enum class LetterCase {
        none, ///< no letters
        lower,
        title,   ///< "Anna", also "O'Connor", "McDonald", "Anne-Mette", "al-Sayed"
        upper,   ///< "ANNA"
        initial, ///< one capital letter
        mixed,   ///< "iPhone", "MacBook", "Lone-wolf"
    };

    TextRange range;
    Kind kind = Kind::punctuation;
    LetterCase letterCase = LetterCase::none;
    /// Set for a word that contains digits or bars among its letters: "Emi1y", but also "S24".
    bool hasDigits = false;
    /// The key to look a word up by, see foldedName(); empty for anything but a word.
    std::string folded;
};

/// Splits a line into words, numbers and marks. A ’ or - inside a word belongs to it. Blanks are left out.
std::vector<NameToken> nameTokens(QStringView line);

/// Lower case, without diacritics and apostrophes, æ as "ae", ø as "o", å as "aa", so that a reading which
/// lost them is still found. With at least as many letters as digits, the digits recognition reads for
/// letters become these (0 o, 1 l, 4 a, 5 s, 8 b). Hyphens stay; letters outside a–z that nothing folds stay
/// as UTF-8.
std::string foldedName(QStringView word);

} // namespace Veilshot
