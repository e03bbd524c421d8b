#include "VeilshotCore/Analysis/NameTagging/NameLine.h"

#include <algorithm>

namespace Veilshot {

namespace {

using LetterCase = NameToken::LetterCase;

bool takesDot(const NameWord& word) {
    const bool isShort = word.range.length <= 4;
    return word.isInitial() || word.is(WordTrait::title) || word.is(WordTrait::suffix) ||
           (isShort && word.is(WordTraits(WordTrait::greeting) | WordTrait::beforePlace));
}

/// `between` stands before the first word of the line.
WordSeparator separatorAtStart(QStringView between) {
    if (between.endsWith(u'@'))
        return WordSeparator::at;
    const QStringView marks = between.trimmed();
    const bool isDash = !marks.isEmpty() && QStringView(u"–—-").contains(marks.back());
    return isDash ? WordSeparator::dash : WordSeparator::edge;
}

WordSeparator separatorAfter(const NameWord& word, QStringView between) {
    const QStringView marks = between.trimmed();
    if (marks.isEmpty())
        return between.contains(u'\t') || between.size() > 1 ? WordSeparator::wide : WordSeparator::blank;
    const bool isTight = std::none_of(between.begin(), between.end(), [](QChar c) { return c.isSpace(); });
    const WordSeparator otherwise = isTight ? WordSeparator::glued : WordSeparator::other;
    if (between.endsWith(u'@'))
        return isTight ? WordSeparator::glued : WordSeparator::at;
    switch (marks.front().unicode()) {
    case u'.':
        return marks.size() == 1 && takesDot(word) ? WordSeparator::blank : otherwise;
    case u'_':
    case u'\\':
        return otherwise;
    case u'=':
        return isTight ? WordSeparator::glued : WordSeparator::colon;
    case u'/': {
        const bool isPath = isTight && (marks.size() > 1 || word.isLower());
        return isPath ? WordSeparator::glued : WordSeparator::slash;
    }
    case u':':
        return isTight && !word.is(WordTrait::label) ? WordSeparator::glued : WordSeparator::colon;
    case u',':
        return marks.size() == 1 && !isTight ? WordSeparator::comma : WordSeparator::other;
    case u'&':
        return WordSeparator::ampersand;
    case u'-':
    case u'–':
    case u'—':
        return isTight ? WordSeparator::other : WordSeparator::dash;
    default:
        return WordSeparator::other;
    }
}

NameWord wordOf(const NameLexicon& lexicon, const NameToken& token, QStringView text) {
    NameWord word;
    word.range = token.range;
    word.letterCase = token.letterCase;
    word.folded = token.folded;
    word.isNumber = token.kind == NameToken::Kind::number;
    if (word.isNumber)
        return word;
    word.traits = lineWordTraits(lexicon, token, text);
    word.evidence = nameEvidence(token, word.traits);
    const bool isTimeMark =
        word.letterCase == LetterCase::upper && (word.folded == "am" || word.folded == "pm");
    word.isNumber = isTimeMark || (token.hasDigits && !word.is(anyName));
    // Without proper capitals only a listed name is one; "Lone-wolf" is none although both parts are.
    const bool isHyphenated = word.folded.find('-') != std::string::npos;
    const bool hasNameCase = word.isCapitalized() || word.isInitial();
    word.canBeName = !word.isNumber && (hasNameCase || word.is(anyName)) &&
                     !(word.letterCase == LetterCase::mixed && isHyphenated);
    return word;
}

} // namespace

bool NameWord::isCapitalized() const {
    return letterCase == LetterCase::title || letterCase == LetterCase::upper;
}

bool NameWord::isLink() const {
    return folded == "and" || folded == "og" || folded == "or" || folded == "eller";
}

bool NameWord::isShapedLikeName() const {
    constexpr qsizetype shortest = 3;
    return letterCase == LetterCase::title && canBeName && range.length >= shortest;
}

bool NameWord::isOneOf(std::span<const std::string_view> words) const {
    return std::ranges::find(words, folded) != words.end();
}

NameLine::NameLine(const NameLexicon& lexicon, QStringView text) : m_text(text) {
    qsizetype end = 0;
    bool isAfterPossessive = false;
    for (const NameToken& token : nameTokens(text)) {
        if (token.kind == NameToken::Kind::possessive)
            isAfterPossessive = true;
        if (token.kind != NameToken::Kind::word && token.kind != NameToken::Kind::number)
            continue;
        NameWord word = wordOf(lexicon, token, text);
        const QStringView between = text.sliced(end, word.range.location - end);
        word.before = isAfterPossessive ? WordSeparator::possessive
                      : m_words.empty() ? separatorAtStart(between)
                                        : separatorAfter(m_words.back(), between);
        if (word.before == WordSeparator::glued) {
            word.canBeName = false;
            m_words.back().canBeName = false;
        }
        m_isSmall = m_isSmall && (word.isLower() || word.isNumber);
        end = word.range.end();
        isAfterPossessive = false;
        m_words.push_back(std::move(word));
    }
    NameWord beyond;
    beyond.range = {text.size(), 0};
    beyond.before = isAfterPossessive ? WordSeparator::possessive : WordSeparator::edge;
    m_words.push_back(std::move(beyond));
    markBrands(lexicon);
}

void NameLine::markBrands(const NameLexicon& lexicon) {
    for (size_t at = 0; at + 1 < size(); ++at) {
        if (lexicon.isBrand(m_words[at].folded, m_words[at + 1].folded))
            m_words[at].canBeName = m_words[at + 1].canBeName = false;
    }
}

bool NameLine::opensCell(size_t at) const {
    const NameWord& word = m_words[at];
    if (word.touches())
        return at > 0 && m_words[at - 1].isNumber;
    return word.before != WordSeparator::possessive && word.before != WordSeparator::glued;
}

bool NameLine::isFilledBy(NameSpan span) const {
    for (size_t at = 0; at < size(); ++at) {
        if ((at < span.first || at > span.last) && !m_words[at].isNumber)
            return false;
    }
    return true;
}

bool NameLine::joinsNext(size_t at) const {
    const NameWord& word = m_words[at];
    const NameWord& next = m_words[at + 1];
    if (next.before == WordSeparator::wide) // a name torn apart by recognition, not two columns
        return next.range.location - word.range.end() == 2 && word.is(anyFirstName) && next.is(anyLastName) &&
               !next.is(WordTrait::role);
    return next.touches();
}

bool NameLine::opensOrganisation(size_t at) const {
    while (m_words[at + 1].touches() && m_words[at + 1].isCapitalized()) {
        if (m_words[++at].is(WordTrait::organisation) && !m_words[at].is(anyName))
            return true;
    }
    return false;
}

bool NameLine::isFollowedBy(size_t at, QStringView mark) const {
    return m_text.sliced(m_words[at].range.end()).trimmed().startsWith(mark);
}

} // namespace Veilshot
