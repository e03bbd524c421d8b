#include "VeilshotCore/Analysis/NameTagging/NameDoubts.h"

#include "VeilshotCore/Analysis/NameTagging/NameEvidence.h"
#include "VeilshotCore/Analysis/NameTagging/NameSpelling.h"

#include <algorithm>

namespace Veilshot {

namespace {

using LetterCase = NameToken::LetterCase;

/// Below it, a word nobody knows is rather a Danish noun.
constexpr double leastSpelling = -3;

struct NameWords {
    size_t first = 0;
    size_t last = 0;
};

NameWords wordsOf(TextRange name, const std::vector<NameToken>& tokens) {
    const auto isInside = [&](const NameToken& token) { return token.range.intersects(name); };
    const auto first = std::ranges::find_if(tokens, isInside);
    const auto last = std::find_if_not(first, tokens.end(), isInside) - 1;
    return {static_cast<size_t>(first - tokens.begin()), static_cast<size_t>(last - tokens.begin())};
}

WordTraits traitsOf(const NameToken& token) {
    return NameLexicon::shared().traits(token.folded);
}

bool isDoubtfulWord(const NameToken& word, QStringView line, const std::vector<NameToken>& tokens) {
    const WordTraits traits = lineWordTraits(NameLexicon::shared(), word, line);
    const bool hasMeaning = bool(traits & anyMeaning);
    const bool isName = bool(traits & anyName);
    const bool fillsLine = tokens.size() == 1;
    const bool looksLikeName = word.letterCase == LetterCase::title;
    const bool isSmall = word.letterCase == LetterCase::lower;
    const bool isShort = word.range.length <= 2 && !(traits & WordTrait::strongFirstName);
    const bool isSpeltOtherwise = !traits && spellingOfName(word.folded) < leastSpelling;
    return ((hasMeaning || isSmall) && !isName) ||
           (fillsLine && (hasMeaning || !looksLikeName || isShort || isSpeltOtherwise));
}

/// "Tue Jun 10", "Due April 3": months and days alone, or a month in front of its day.
bool isDate(NameWords words, const std::vector<NameToken>& tokens) {
    const auto isCalendar = [](const NameToken& token) {
        return traitsOf(token).testFlag(WordTrait::calendar);
    };
    const auto first = tokens.begin() + static_cast<ptrdiff_t>(words.first);
    const auto last = tokens.begin() + static_cast<ptrdiff_t>(words.last);
    const bool isBeforeDay = last + 1 != tokens.end() && (last + 1)->kind == NameToken::Kind::number;
    return first != last &&
           (std::all_of(first, last + 1, isCalendar) ||
            (isBeforeDay && isCalendar(*last) && !traitsOf(*first).testFlag(WordTrait::strongFirstName)));
}

/// "Charlotte Street", "Florence" in "Florence Nightingale School".
bool isPlace(NameWords words, const std::vector<NameToken>& tokens) {
    const bool isTown = traitsOf(tokens[words.first]).testFlag(WordTrait::place);
    if (words.first != words.last)
        return isTown && traitsOf(tokens[words.last]).testFlag(WordTrait::organisation);
    size_t at = words.last + 1;
    while (at < tokens.size() && tokens[at].letterCase == LetterCase::title &&
           !traitsOf(tokens[at]).testFlag(WordTrait::organisation))
        ++at;
    return at < tokens.size() && at < words.last + 3 && tokens[at].letterCase == LetterCase::title &&
           traitsOf(tokens[at]).testFlag(WordTrait::organisation) && !(traitsOf(tokens[at]) & anyName);
}

/// "10.0.0.7 - Victoria", "09:30 Florence", "Version 8 “Florence”": a town that people are called after.
bool isTown(const NameToken& word, QStringView line, const std::vector<NameToken>& tokens) {
    constexpr QStringView quotes = u"“”„\"»«";
    if (!traitsOf(word).testFlag(WordTrait::place))
        return false;
    const bool isQuoted = word.range.location > 0 && word.range.end() < line.size() &&
                          quotes.contains(line[word.range.location - 1]) &&
                          quotes.contains(line[word.range.end()]);
    const auto isOtherWord = [&](const NameToken& token) {
        return token.kind == NameToken::Kind::word && token.range != word.range;
    };
    const bool isAmongNumbers = std::ranges::count(tokens, NameToken::Kind::number, &NameToken::kind) > 1 &&
                                std::ranges::none_of(tokens, isOtherWord);
    return isQuoted || isAmongNumbers;
}

/// Two digits may be letters misread, more are none.
bool isCode(QStringView text) {
    return std::ranges::count_if(text, [](QChar c) { return c.isDigit(); }) > 2;
}

} // namespace

bool isDoubtfulName(TextRange name, QStringView line, const std::vector<NameToken>& tokens) {
    const NameWords words = wordsOf(name, tokens);
    if (words.first == words.last)
        return isDoubtfulWord(tokens[words.first], line, tokens);
    // "Moss green": what begins with a capital ends with one.
    const NameToken& closing = tokens[words.last];
    const NameToken& opening = tokens[words.first];
    if (!traitsOf(opening).testFlag(WordTrait::strongFirstName) && opening.letterCase == LetterCase::title &&
        closing.letterCase == LetterCase::lower && (traitsOf(closing) & anyMeaning))
        return true;
    const auto first = tokens.begin() + static_cast<ptrdiff_t>(words.first);
    return std::all_of(first, tokens.begin() + static_cast<ptrdiff_t>(words.last) + 1,
                       [](const NameToken& token) {
                           return token.kind == NameToken::Kind::word && !traitsOf(token) &&
                                  spellingOfName(token.folded) < leastSpelling;
                       });
}

bool isOtherThanName(TextRange name, QStringView line, const std::vector<NameToken>& tokens) {
    const NameWords words = wordsOf(name, tokens);
    return isCode(line.sliced(name.location, name.length)) || isDate(words, tokens) ||
           isPlace(words, tokens) || (words.first == words.last && isTown(tokens[words.first], line, tokens));
}

} // namespace Veilshot
