#include "VeilshotCore/Analysis/NameTagging/UnmistakableNames.h"

#include "VeilshotCore/Analysis/NameTagging/NameLikeness.h"
#include "VeilshotCore/Analysis/RegularExpression.h"

#include <algorithm>
#include <array>
#include <string>

namespace Veilshot {

namespace {

using LetterCase = NameToken::LetterCase;

constexpr size_t longestName = 4; ///< words

bool isListedOnlyAs(WordTraits name, const NameWord& word) {
    return word.isShapedLikeName() && word.is(name) && !word.is(anyMeaning);
}

/// "Roscoe, NY".
bool isBeforeState(const NameLine& line, size_t at) {
    const NameWord& next = line.word(at + 1);
    return next.before == WordSeparator::comma && next.letterCase == LetterCase::upper &&
           next.range.length == 2;
}

/// The last word of the name behind the title at this place.
std::optional<size_t> endBehindTitle(const NameLine& line, size_t at) {
    constexpr std::array<std::string_view, 12> plain{"mr", "mrs", "mx",  "dr",     "prof", "professor",
                                                     "hr", "fru", "sgt", "froken", "frk",  "herr"};
    const NameWord& title = line.word(at);
    const bool isPlain = title.isOneOf(plain) && title.letterCase == LetterCase::title;
    const bool isOther =
        title.is(WordTrait::title | WordTrait::role) && title.letterCase != LetterCase::upper;
    const NameWord& first = line.word(at + 1);
    const bool isName =
        isPlain ? first.isShapedLikeName() || first.isInitial() : isListedOnlyAs(anyName, first);
    // "Father Bede Molloy".
    const bool isBeforeLastName = first.isShapedLikeName() && !first.is(anyMeaning & ~unusualMeaning) &&
                                  line.word(at + 2).touches() &&
                                  isListedOnlyAs(anyLastName, line.word(at + 2));
    if (!(isPlain || isOther) || !first.touches() || !(isName || isBeforeLastName))
        return {};
    size_t last = at + 1;
    const auto goesOn = [&](const NameWord& word) {
        return word.touches() &&
               (word.isShapedLikeName() || word.isInitial() || word.is(WordTrait::particle)) &&
               !word.is(WordTrait::functionWord | WordTrait::calendar);
    };
    while (last < at + longestName && goesOn(line.word(last + 1)))
        ++last;
    while (last > at + 1 && line.word(last).isLower())
        --last;
    return line.word(last).isInitial() ? std::nullopt : std::optional(last);
}

bool isInSentence(const NameLine& line) {
    constexpr int leastSmallWords = 3;
    int small = 0;
    for (size_t at = 0; at < line.size(); ++at)
        small += line.word(at).isLower() ? 1 : 0;
    return small >= leastSmallWords;
}

/// "River Trent": a capitalised word in front says what it is, unless it introduces or praises people.
bool isNamedByTheWordBefore(const NameLine& line, size_t at) {
    constexpr std::array<std::string_view, 8> praise{"old",  "young", "little", "dear",
                                                     "poor", "gamle", "lille",  "unge"};
    return at > 0 && !line.word(at - 1).isOneOf(praise) && line.word(at).touches() &&
           !line.word(at - 1).isLower() && !line.word(at - 1).isNumber &&
           !line.word(at - 1).is(WordTrait::title | WordTrait::role | WordTrait::greeting | WordTrait::label |
                                 WordTrait::namePossible | WordTrait::nameBefore);
}

/// "Hyacinth Mbeki": a first name that is a word as well, in front of a last name that is none.
bool isFirstNameOfLastName(const NameLine& line, size_t at) {
    const NameWord& first = line.word(at);
    const NameWord& last = line.word(at + 1);
    if (!first.isShapedLikeName() || !first.is(anyFirstName) || first.is(anyMeaning & ~ordinaryMeaning) ||
        !last.touches() || !isListedOnlyAs(anyLastName, last))
        return false;
    const NameWord& behind = line.word(at + 2);
    return !(behind.touches() && behind.isCapitalized());
}

/// The last word of the name that begins with a common first name at this place.
std::optional<size_t> endOfFirstName(const NameLine& line, size_t at) {
    if (!isListedOnlyAs(WordTrait::strongFirstName, line.word(at)) || isNamedByTheWordBefore(line, at) ||
        line.opensOrganisation(at) || isBeforeState(line, at))
        return {};
    const NameWord& next = line.word(at + 1);
    const bool isLastName = next.touches() && next.isShapedLikeName() &&
                            (!next.is(anyMeaning) ||
                             (isInSentence(line) && !next.is(WordTrait::functionWord | WordTrait::calendar |
                                                             WordTrait::place | WordTrait::organisation)));
    return isLastName ? at + 1 : at;
}

/// "Lettice would like": any first name that means nothing else, in front of what people do.
bool isFirstNameOfSomebody(const NameLine& line, size_t at) {
    constexpr std::array<std::string_view, 12> others{"would", "could", "should", "can", "did", "does",
                                                      "kunne", "ville", "skulle", "fik", "gik", "kom"};
    const NameWord& next = line.word(at + 1);
    return isListedOnlyAs(anyFirstName, line.word(at)) && next.touches() && next.isLower() &&
           (next.is(WordTrait::personVerb | WordTrait::auxiliary) || next.isOneOf(others)) &&
           !isNamedByTheWordBefore(line, at);
}

/// "with Pugh on Sunday", "then Pugh brings the ladder".
bool isLastNameOfSomebody(const NameLine& line, size_t at) {
    const NameWord& word = line.word(at);
    const NameWord& next = line.word(at + 1);
    if (!isListedOnlyAs(WordTrait::strongLastName, word) || (next.touches() && !next.isLower()))
        return false;
    const bool isBehindLink =
        at > 0 && word.touches() &&
        line.word(at - 1).is(WordTrait::namePossible | WordTrait::nameBefore | WordTrait::personVerb);
    const bool acts = next.touches() && next.is(WordTrait::personVerb);
    return !isNamedByTheWordBefore(line, at) && (isBehindLink || acts);
}

/// The letters of each part in front of an @, in small letters without signs: "haeun.park" as {"haeun",
/// "park"}.
std::vector<std::string> mailboxParts(QStringView text) {
    static const RegularExpression mailbox(uR"((?<![\p{L}\d._+-])[\p{L}\d._+-]++(?=@[\p{L}\d-]+\.))");
    static const RegularExpression letters(uR"(\p{L}+)");
    std::vector<std::string> parts;
    for (const TextRange range : mailbox.ranges(text)) {
        const QStringView box = text.sliced(range.location, range.length);
        for (const TextRange part : letters.ranges(box))
            parts.push_back(foldedName(box.sliced(part.location, part.length)));
    }
    return parts;
}

/// Whether the part is the word or its beginning, but for an initial, or the word with another one of the
/// line.
bool isMadeOf(std::string_view part, std::string_view word, const std::vector<std::string>& words) {
    constexpr size_t shortestBeginning = 4;
    if (part.size() >= shortestBeginning && word.starts_with(part))
        return true;
    const size_t found = part.find(word);
    if (found == std::string_view::npos)
        return false;
    const std::string_view rest = found == 0 ? part.substr(word.size()) : part.substr(0, found);
    return word.size() + rest.size() == part.size() &&
           (rest.size() <= 1 || std::ranges::find(words, rest) != words.end());
}

void appendNamesOfMailboxes(std::vector<TextRange>& names, const NameLine& line) {
    const std::vector<std::string> parts = mailboxParts(line.text());
    if (parts.empty())
        return;
    constexpr std::ptrdiff_t shortest = 3;
    std::vector<std::string> words;
    for (size_t at = 0; at < line.size(); ++at) {
        std::string key = line.word(at).folded;
        std::erase(key, '-');
        words.push_back(line.word(at).canBeName ? key : std::string());
    }
    std::vector<size_t> known;
    for (size_t at = 0; at < line.size(); ++at) {
        const bool isPart = std::ssize(words[at]) >= shortest && line.word(at).isCapitalized() &&
                            std::ranges::any_of(parts, [&](const std::string& part) {
                                return isMadeOf(part, words[at], words);
                            });
        if (isPart)
            known.push_back(at);
    }
    // "Support,support@…": a single word that means something is no name.
    const auto isTelling = [&](size_t at) { return !line.word(at).is(anyMeaning); };
    if (known.size() > 1 ? std::ranges::none_of(known, [&](size_t at) { return line.word(at).is(anyName); })
                         : std::ranges::none_of(known, isTelling))
        return;
    for (const size_t at : known)
        names.push_back(line.word(at).range);
    // "Dragsted,Pelle,pelle@…": the field in front of the first name.
    const size_t first = known.front();
    if (known.size() == 1 && first > 0 && line.word(first).before != WordSeparator::blank &&
        line.isFollowedBy(first - 1, u",") && line.word(first - 1).isShapedLikeName() &&
        !line.word(first - 1).is(anyMeaning))
        names.push_back(line.word(first - 1).range);
}

} // namespace

std::vector<TextRange> unmistakableNames(const NameLine& line) {
    std::vector<TextRange> names;
    const auto append = [&](size_t first, size_t last) {
        const qsizetype start = line.word(first).range.location;
        names.push_back({start, line.word(last).range.end() - start});
    };
    for (size_t at = 0; at < line.size(); ++at) {
        if (const auto titled = endBehindTitle(line, at))
            append(at + 1, *titled);
        if (const auto last = endOfFirstName(line, at))
            append(at, *last);
        else if (isFirstNameOfLastName(line, at))
            append(at, at + 1);
        if (isLastNameOfSomebody(line, at) || isFirstNameOfSomebody(line, at))
            append(at, at);
    }
    appendNamesOfMailboxes(names, line);
    return names;
}

} // namespace Veilshot
