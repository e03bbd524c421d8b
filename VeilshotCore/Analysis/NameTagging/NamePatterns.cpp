#include "VeilshotCore/Analysis/NameTagging/NamePatterns.h"

#include "VeilshotCore/Analysis/NameTagging/NameLikeness.h"
#include "VeilshotCore/Analysis/NameTagging/NameSpelling.h"

#include <algorithm>
#include <array>

namespace Veilshot {

namespace {

using LetterCase = NameToken::LetterCase;

bool isDottedInitial(const NameLine& line, size_t at) {
    return at < line.size() && line.word(at).isInitial() && line.isFollowedBy(at, u".");
}

/// The last of the initials that begin here: "J. P.", "P.-C.".
size_t lastInitial(const NameLine& line, size_t at) {
    while (isDottedInitial(line, at + 1) && (line.word(at + 1).touches() || line.isFollowedBy(at, u".-")))
        ++at;
    return at;
}

/// The last word of the name that begins here, if its form makes it one.
std::optional<size_t> endOfFormedName(const NameLine& line, size_t at) {
    constexpr std::array<std::string_view, 4> titles{"mr", "mrs", "ms", "miss"};
    const NameWord& word = line.word(at);
    const NameWord& next = line.word(at + 1);
    const bool isLastNameLike =
        isNameLike(word) || (word.is(WordTrait::strongLastName) && word.canBeName &&
                             word.letterCase == LetterCase::title && !word.is(anyMeaning & ~ordinaryMeaning));
    if (isDottedInitial(line, at + 1)) {
        const size_t last = lastInitial(line, at + 1);
        const NameWord& behind = line.word(last + 1);
        // "Tamm, K." of references; "Portland, O." is none.
        if (next.before == WordSeparator::comma && isLastNameLike && !word.is(WordTrait::place) &&
            (behind.isLink() || !behind.touches()))
            return last;
        const bool isOne = last == at + 1 || line.isFollowedBy(at + 1, u".-");
        if (next.touches() && isOne && isFirstNameLike(word) && !behind.isLower())
            return last;
    }
    // "P. Gunaratnam".
    if (isDottedInitial(line, at) && line.opensCell(at)) {
        const size_t last = lastInitial(line, at) + 1;
        if (last < line.size() && line.word(last).touches() && isNameLike(line.word(last)) &&
            line.closesCell(last))
            return last;
    }
    // "NAIDOO K" and nothing else.
    if (word.letterCase == LetterCase::upper && next.isInitial() && next.touches() && word.is(anyLastName) &&
        !word.is(anyMeaning) && word.range.length > 3 && line.isFilledBy({at, at + 1}))
        return at + 1;
    // "the officer, T. Blackdeer".
    if (isDottedInitial(line, at) && line.word(at + 1).touches() && isNameLike(line.word(at + 1)) &&
        !(line.word(at + 2).touches() && line.word(at + 2).isCapitalized()))
        return at + 1;
    // "DELAHUNTY/CAOIMHE MS".
    const bool areCapitals = word.letterCase == LetterCase::upper && next.letterCase == LetterCase::upper;
    const NameWord& behind = line.word(std::min(at + 2, line.size()));
    if (areCapitals && next.before == WordSeparator::slash && behind.letterCase == LetterCase::upper &&
        behind.isOneOf(titles))
        return at + 1;
    return {};
}

/// "By Temperance Ashdown": the last word at least is not to be taken for another.
bool isByline(const NameLine& line, size_t at) {
    constexpr std::array<std::string_view, 5> authors{"by", "af", "foto", "tekst", "photo"};
    if (at != 1 || at + 1 >= line.size() || !line.word(0).isOneOf(authors))
        return false;
    const NameWord& word = line.word(at);
    const NameWord& next = line.word(at + 1);
    return word.letterCase == LetterCase::title && next.touches() && isNameLike(next) &&
           !word.is(WordTrait::organisation | WordTrait::functionWord | WordTrait::beforePlace |
                    WordTrait::title) &&
           (!line.word(at + 2).touches() || !line.word(at + 2).isCapitalized());
}

/// "Prudence Abiola" and nothing else: a less usual word in front of one that can hardly be but a name.
bool isStrangePair(const NameLine& line, size_t at) {
    constexpr double least = 2;
    if (at + 1 >= line.size() || !line.word(at + 1).touches() || !line.isFilledBy({at, at + 1}))
        return false;
    const NameWord& word = line.word(at);
    const NameWord& next = line.word(at + 1);
    const bool areTitles = word.letterCase == LetterCase::title && next.letterCase == LetterCase::title;
    const bool isSpeltLikeName = !next.is(anyMeaning | anyName) && spellingOfName(next.folded) >= least;
    const bool isLastName = next.is(WordTrait::strongLastName) && !next.is(anyMeaning);
    return areTitles && word.is(unusualMeaning) && !word.is(anyMeaning & ~unusualMeaning) && next.canBeName &&
           next.range.length > 3 && (isSpeltLikeName || isLastName);
}

/// "Zbigniew topatka" or "lestyn Prydderch" and nothing else: a capital was misread.
bool isMisreadPair(const NameLine& line, size_t at) {
    constexpr qsizetype shortest = 4;
    const NameWord& word = line.word(at);
    const NameWord& next = line.word(at + 1);
    if (!line.isFilledBy({at, at + 1}) || !next.touches())
        return false;
    const auto isMisread = [](const NameWord& part) {
        return part.isLower() && !part.traits && part.range.length >= shortest;
    };
    return (isNameLike(word) && word.is(anyFirstName) && isMisread(next)) ||
           (isMisread(word) && word.folded.starts_with('l') && isNameLike(next));
}

/// "Ottavia" and nothing else: a first name, since many last names are towns, no other word and spelt like a
/// name, the more so if it is as short as what is misread from icons.
bool isLoneName(const NameLine& line, size_t at) {
    constexpr qsizetype shortest = 4;
    const NameWord& word = line.word(at);
    const double least = word.range.length < shortest ? 2 : 0;
    return line.isFilledBy({at, at}) && word.isShapedLikeName() && word.is(anyFirstName) &&
           !word.is(anyMeaning) && spellingOfName(word.folded) >= least;
}

/// The last word of "Kahurangi, Moana", "de Wilde, Famke" or "Penn, William T." and nothing else.
std::optional<size_t> endOfLastNameFirst(const NameLine& line, size_t at) {
    size_t comma = at;
    while (line.word(comma).isLower() && line.word(comma).is(WordTrait::particle) &&
           line.word(comma + 1).touches())
        ++comma;
    const NameWord& last = line.word(comma);
    const NameWord& first = line.word(comma + 1);
    const bool hasInitial = isDottedInitial(line, comma + 2);
    const size_t end = hasInitial ? comma + 2 : comma + 1;
    if (first.before != WordSeparator::comma || !line.isFilledBy({at, end}) || !last.isShapedLikeName() ||
        !first.isShapedLikeName())
        return {};
    const bool isLastName = isNameLike(last) && (hasInitial || !last.is(WordTrait::strongFirstName));
    const bool isFirstName = first.is(WordTrait::strongFirstName) && !first.is(anyMeaning & ~unusualMeaning);
    const bool areNames =
        (isLastName && isFirstNameLike(first)) ||
        (isFirstName && !last.is(anyMeaning & ~(unusualMeaning | WordTrait::frequentWord))) ||
        (last.is(anyLastName) && !last.is(anyMeaning | anyFirstName) && first.is(anyFirstName));
    return areNames ? std::optional(end) : std::nullopt;
}

TextRange rangeOf(const NameLine& line, size_t first, size_t last) {
    const qsizetype start = line.word(first).range.location;
    const qsizetype dot = isDottedInitial(line, last) ? 1 : 0;
    return {start, line.word(last).range.end() + dot - start};
}

} // namespace

std::vector<TextRange> namesByPattern(const NameLine& line) {
    std::vector<TextRange> names;
    for (size_t at = 0; at < line.size(); ++at) {
        std::optional<size_t> last = endOfFormedName(line, at);
        if (!last)
            last = endOfLastNameFirst(line, at);
        if (!last && (isByline(line, at) || isStrangePair(line, at) || isMisreadPair(line, at)))
            last = at + 1;
        if (!last && isLoneName(line, at))
            last = at;
        if (last) {
            names.push_back(rangeOf(line, at, *last));
            at = *last;
        }
    }
    return names;
}

} // namespace Veilshot
