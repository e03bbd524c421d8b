#include "VeilshotCore/Analysis/NameTagging/JoinedNames.h"

#include "VeilshotCore/Analysis/NameTagging/NameLikeness.h"
#include "VeilshotCore/Analysis/NameTagging/NameSpelling.h"

#include <algorithm>
#include <iterator>

namespace Veilshot {

namespace {

using LetterCase = NameToken::LetterCase;

enum class Joint { none, comma, link };

bool isJoinedBySign(const NameLine& line, size_t at) {
    return line.word(at).before == WordSeparator::ampersand ||
           (line.word(at).before == WordSeparator::other && line.isFollowedBy(at - 1, u"+"));
}

/// What joins the words up to `end` (exclusive) to those from `end` on; a link stands in between.
Joint jointAt(const NameLine& line, size_t end) {
    if (end == 0 || end >= line.size())
        return Joint::none;
    if (isJoinedBySign(line, end) || line.word(end).isLink())
        return Joint::link;
    return line.word(end).before == WordSeparator::comma ? Joint::comma : Joint::none;
}

/// Whether all of the words may belong to a name: first names, or words that mean nothing else and are not
/// spelt like Danish nouns.
bool mayBeName(const NameLine& line, NameSpan span) {
    constexpr double least = -1.5;
    constexpr size_t longestName = 4;
    double spelling = 0;
    const NameWord& opening = line.word(span.first);
    if (span.isSingle() && opening.is(anyLastName) && !opening.is(anyFirstName))
        return false; // "Marlowe & Pike"
    for (size_t at = span.first; at <= span.last; ++at) {
        const NameWord& word = line.word(at);
        const bool isFirstName =
            (word.is(WordTrait::strongFirstName) && !word.is(WordTrait::place | WordTrait::functionWord)) ||
            (word.is(anyFirstName) && !word.is(anyMeaning & ~unusualMeaning));
        // "Bill Church" among other names.
        const bool isLastName = at == span.last && !span.isSingle() &&
                                opening.is(WordTrait::strongFirstName) && word.is(WordTrait::strongLastName);
        if (!word.isShapedLikeName() || (word.is(anyMeaning) && !isFirstName && !isLastName))
            return false;
        spelling += word.is(anyName) ? 0 : spellingOfName(word.folded);
    }
    return span.last - span.first < longestName && spelling >= least;
}

/// "Tor Ivar": a first name, though a word too, that begins a cell.
bool isFirstNameInFront(const NameLine& line, size_t at) {
    const NameWord& word = line.word(at);
    const bool isCommon = word.is(WordTrait::strongFirstName) && !word.is(anyMeaning & ~ordinaryMeaning);
    return line.opensCell(at) && line.word(at + 1).touches() && isCommon && word.isShapedLikeName() &&
           line.word(at + 1).letterCase == LetterCase::title;
}

/// The items of a line that is nothing but an enumeration of capitalised words without another meaning, most
/// of them names: "Okonjo-Bello, Lindqvist, Haddad". An unknown single word beside a single name may be a
/// town.
template<typename IsFound>
std::vector<TextRange> enumeratedNames(const NameLine& line, IsFound isFound) {
    constexpr qsizetype longestParticle = 3;
    struct Item {
        TextRange range;
        bool isName = false;
        bool isSingle = true;
    };
    std::vector<Item> items;
    for (size_t at = 0; at < line.size(); ++at) {
        const NameWord& word = line.word(at);
        const bool goesOn = at > 0 && word.touches();
        const bool isParticle = goesOn && word.range.length <= longestParticle;
        if (word.letterCase != LetterCase::title || (word.is(anyMeaning) && !isParticle) ||
            !(at == 0 || goesOn || word.before == WordSeparator::comma))
            return {};
        if (!goesOn)
            items.push_back({word.range});
        Item& item = items.back();
        item.range.length = word.range.end() - item.range.location;
        item.isName = item.isName || isFound(at) || word.is(anyName);
        item.isSingle = item.isSingle && !goesOn;
    }
    const auto names = std::ranges::count_if(items, &Item::isName);
    const bool hasDoubt = std::ranges::any_of(items, [](auto item) { return !item.isName && item.isSingle; });
    if (items.size() < 2 || 2 * names < std::ssize(items) + (hasDoubt ? 1 : 0))
        return {};
    std::vector<TextRange> ranges;
    std::ranges::transform(items, std::back_inserter(ranges), &Item::range);
    return ranges;
}

} // namespace

std::vector<TextRange> namesJoinedTo(const std::vector<TextRange>& names, const NameLine& line) {
    if (names.empty())
        return {};
    const auto isFound = [&](size_t at) {
        return at < line.size() && std::ranges::any_of(names, [&](TextRange name) {
                   return name.intersects(line.word(at).range);
               });
    };
    if (std::vector<TextRange> items = enumeratedNames(line, isFound); !items.empty())
        return items;
    bool isLabelled = line.size() > 1 && line.word(0).is(WordTrait::label) && line.word(1).touches();
    for (size_t at = 1; at < line.size(); ++at)
        isLabelled = isLabelled ||
                     (line.word(at).before == WordSeparator::colon && line.word(at - 1).is(WordTrait::label));

    std::vector<TextRange> joined;
    for (size_t at = 0; at + 1 < line.size(); ++at) {
        if (isFirstNameInFront(line, at) && !isFound(at) && isFound(at + 1))
            joined.push_back(line.word(at).range);
    }
    const auto canJoin = [&](size_t neighbour, Joint joint, NameSpan span) {
        // Behind a name and a comma there often stands a town.
        const bool isList = isLabelled || (names.size() > 1 && !span.isSingle());
        return isFound(neighbour) && (joint == Joint::link || (joint == Joint::comma && isList));
    };
    const auto isLabel = [&](size_t at) {
        return line.word(at).is(WordTrait::label) && !line.word(at).is(anyName);
    };
    for (size_t first = 0; first < line.size();) {
        if (isLabel(first)) {
            ++first;
            continue;
        }
        size_t last = first;
        while (last + 1 < line.size() && line.word(last + 1).touches() && line.word(last + 1).isCapitalized())
            ++last;
        // "Lunch Prudence & Olu".
        if (first < last && !line.word(first).is(anyName) && line.word(first).is(anyMeaning))
            first = last;
        const bool isFree = first == last || first == 0 || !line.word(first).touches() ||
                            line.word(first - 1).isLower() || isLabel(first - 1);
        if (isFree && !isFound(first) && !isFound(last) && mayBeName(line, {first, last})) {
            const bool isAfterLink = first > 1 && line.word(first - 1).isLink();
            const size_t behind = last + 1 + (line.word(last + 1).isLink() ? 1 : 0);
            const bool joinsLeft =
                first > 0 && (isAfterLink ? canJoin(first - 2, Joint::link, {first, last})
                                          : canJoin(first - 1, jointAt(line, first), {first, last}));
            if (joinsLeft || canJoin(behind, jointAt(line, last + 1), {first, last})) {
                const qsizetype start = line.word(first).range.location;
                joined.push_back({start, line.word(last).range.end() - start});
            }
        }
        first = last + 1;
    }
    return joined;
}

} // namespace Veilshot
