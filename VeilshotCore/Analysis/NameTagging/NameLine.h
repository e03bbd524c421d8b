#pragma once

#include "VeilshotCore/Analysis/NameTagging/NameEvidence.h"
#include "VeilshotCore/Analysis/TextRange.h"

#include <QStringView>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Veilshot {

/// What stands between two words.
enum class WordSeparator {
    edge,  ///< begin or end of the line
    blank, ///< one blank; also the dot of an initial or a title
    wide,  ///< a column gap
    comma,
    ampersand,
    slash,
    colon,
    dash,
    possessive, ///< ’s
    at,         ///< an @ directly before the word
    glued,      ///< inside an address, path or identifier
    other,
};

/// A word or number of a line with what is known of it.
struct NameWord {
    TextRange range;
    NameToken::LetterCase letterCase = NameToken::LetterCase::none;
    WordTraits traits;
    NameEvidence evidence;
    std::string folded;
    WordSeparator before = WordSeparator::edge; ///< between the previous word and this one
    bool isNumber = false;
    bool canBeName = false;

    bool is(WordTraits any) const { return bool(traits & any); }
    /// "Anna" or "ANNA".
    bool isCapitalized() const;
    bool isInitial() const { return letterCase == NameToken::LetterCase::initial; }
    bool isLower() const { return letterCase == NameToken::LetterCase::lower; }
    bool touches() const { return before == WordSeparator::blank; }
    /// In no name list.
    bool isOrdinary() const { return !isNumber && !is(anyName) && !isInitial(); }
    /// "and" or "or".
    bool isLink() const;
    /// "Anna", no initial and no part of something else.
    bool isShapedLikeName() const;
    /// Takes words as they are folded.
    bool isOneOf(std::span<const std::string_view> words) const;
};

/// Neighbouring words that may be one name; a single word needs more help from its surroundings than several.
struct NameSpan {
    size_t first = 0;
    size_t last = 0; ///< inclusive

    bool isSingle() const { return first == last; }
};

/// The words of a line and how they lie to each other. A cell is what a table column, a label, a bracket or a
/// sentence encloses. Views the text and keeps the lexicon; both must outlive it.
class NameLine {
public:
    NameLine(const NameLexicon& lexicon, QStringView text);

    QStringView text() const { return m_text; }
    size_t size() const { return m_words.size() - 1; }
    /// Up to and including size(): behind the last word stands an empty one, so that every word has a
    /// neighbour.
    const NameWord& word(size_t at) const { return m_words[at]; }
    /// Whether there is not a single capital, as in a hasty chat.
    bool isSmall() const { return m_isSmall; }

    bool opensCell(size_t at) const;
    bool closesCell(size_t at) const { return opensCell(at + 1); }
    /// Whether there is nothing else in the line but numbers.
    bool isFilledBy(NameSpan span) const;
    /// Whether a name may go on from this word to the next.
    bool joinsNext(size_t at) const;
    /// Whether the capitalised words behind this one make it a company's: "Sandoval Masonry LLC".
    bool opensOrganisation(size_t at) const;
    /// Whether `mark` follows the word, blanks aside.
    bool isFollowedBy(size_t at, QStringView mark) const;

private:
    void markBrands(const NameLexicon& lexicon);

    QStringView m_text;
    std::vector<NameWord> m_words;
    bool m_isSmall = true;
};

} // namespace Veilshot
