#include "VeilshotCore/Analysis/NameTagging/ListNameTagger.h"

#include "VeilshotCore/Analysis/NameTagging/NameLine.h"
#include "VeilshotCore/Analysis/NameTagging/NameSurroundings.h"

#include <algorithm>

namespace Veilshot {

namespace {

using LetterCase = NameToken::LetterCase;

/// Points from which on a span counts as a name. Half a point more misses two to five more names in a hundred
/// and spares a quarter to a third of the lines flagged wrongly.
constexpr double singleThreshold = 1.8;
constexpr double joinedThreshold = 2.0;
constexpr size_t longestName = 6; ///< words

struct Candidate {
    NameSpan span;
    double surplus = 0; ///< points above the threshold
};

/// Whether the capitals of the two ends can belong to one name: not "Anna DOB", not "Anna skriver".
bool haveSameCase(const NameWord& opening, const NameWord& closing) {
    if (opening.isLower() || closing.isLower())
        return opening.letterCase == closing.letterCase;
    const auto isFlexible = [](const NameWord& word) {
        return word.isInitial() || word.letterCase == LetterCase::mixed;
    };
    return isFlexible(opening) || isFlexible(closing) || opening.letterCase == closing.letterCase;
}

bool canCloseName(const NameLine& line, size_t at) {
    const NameWord& word = line.word(at);
    const bool isCompany = word.is(WordTrait::organisation) && !word.is(WordTrait::strongLastName);
    const bool goesOn = word.is(WordTrait::particle) && line.joinsNext(at) && line.word(at + 1).canBeName;
    return word.canBeName && !word.isInitial() && !word.is(WordTrait::suffix) && !isCompany && !goesOn;
}

void addSpansFrom(const NameLine& line, size_t first, std::vector<Candidate>& candidates) {
    const auto consider = [&](NameSpan span, double threshold) {
        const double surplus = wordEvidence(line, span) + surroundingEvidence(line, span) - threshold;
        if (surplus >= 0)
            candidates.push_back({span, surplus});
    };
    const NameWord& opening = line.word(first);
    if (!opening.canBeName || opening.is(WordTrait::title))
        return;
    // A single word behind an @ is a handle.
    if (!opening.isInitial() && opening.before != WordSeparator::at)
        consider({first, first}, singleThreshold);
    for (size_t last = first + 1; last < line.size() && last < first + longestName; ++last) {
        const NameWord& closing = line.word(last);
        if (!line.joinsNext(last - 1) || !(closing.canBeName || closing.is(WordTrait::particle)))
            return;
        if (canCloseName(line, last) && haveSameCase(opening, closing))
            consider({first, last}, joinedThreshold);
    }
}

/// "Carter, Emily" and "Krogh, Viggo B.", not the enumeration "Liam, Grace".
void addLastNameFirst(const NameLine& line, size_t at, std::vector<Candidate>& candidates) {
    const NameWord& lastName = line.word(at);
    const NameWord& firstName = line.word(at + 1);
    if (firstName.before != WordSeparator::comma || lastName.before == WordSeparator::comma ||
        !lastName.canBeName || !firstName.canBeName || !lastName.isCapitalized())
        return;
    const bool isLastInCapitals =
        lastName.letterCase == LetterCase::upper && firstName.letterCase == LetterCase::title;
    if (!firstName.isInitial() && firstName.letterCase != lastName.letterCase && !isLastInCapitals)
        return;
    const bool isEnumeration = lastName.is(anyFirstName) && !lastName.is(anyLastName);
    const bool isTownAndState = firstName.isInitial() && lastName.is(WordTrait::place);
    if (isEnumeration || isTownAndState)
        return;
    size_t last = at + 1;
    while (last + 1 < line.size() && line.word(last + 1).touches() && line.word(last + 1).isInitial() &&
           line.isFollowedBy(last + 1, u"."))
        ++last;
    const NameWord& next = line.word(last + 1);
    if ((next.before == WordSeparator::comma && !next.isNumber) || next.isLink())
        return;
    // "Di Stefano, Rosa": words in front of the last belong to it when there is nothing else in the line.
    size_t first = at;
    while (first > 0 && line.word(first).touches() && line.word(first - 1).isCapitalized() &&
           line.word(first - 1).canBeName)
        --first;
    const bool fillsLine = line.isFilledBy({first, last});
    if (!fillsLine)
        first = at;
    const double before = evidenceBefore(line, {first, last});
    if (!line.opensCell(first) && before < 1)
        return;
    const bool isStrange = !lastName.is(anyMeaning) && !firstName.is(anyMeaning);
    const double points = lastName.evidence.asLastName + firstName.evidence.asFirstName +
                          (firstName.isInitial() ? 0.5 : 0) + (fillsLine && isStrange ? 1.4 : 0) + before;
    if (points >= joinedThreshold)
        candidates.push_back({{first, last}, points});
}

/// The set of candidates without overlaps that has the most points; in no particular order.
std::vector<NameSpan> bestSpans(std::vector<Candidate> candidates, size_t wordCount) {
    std::sort(candidates.begin(), candidates.end(),
              [](const Candidate& left, const Candidate& right) { return left.span.last < right.span.last; });
    std::vector<double> bestOfFirst(wordCount + 1, 0); // what the first n words can yield
    std::vector<const Candidate*> endingAt(wordCount + 1, nullptr);
    auto candidate = candidates.cbegin();
    for (size_t count = 1; count <= wordCount; ++count) {
        bestOfFirst[count] = bestOfFirst[count - 1];
        for (; candidate != candidates.cend() && candidate->span.last + 1 == count; ++candidate) {
            // The small addend lets a name that just reaches the threshold win over none.
            const double points = bestOfFirst[candidate->span.first] + candidate->surplus + 0.01;
            if (points > bestOfFirst[count]) {
                bestOfFirst[count] = points;
                endingAt[count] = &*candidate;
            }
        }
    }
    std::vector<NameSpan> spans;
    for (size_t count = wordCount; count > 0;) {
        if (endingAt[count])
            spans.push_back(endingAt[count]->span);
        count = endingAt[count] ? endingAt[count]->span.first : count - 1;
    }
    return spans;
}

/// A capitalized word joined to a name by "and", a comma or the like is one, too, if nothing speaks against
/// it.
void addCoordinated(const NameLine& line, std::vector<NameSpan>& names) {
    std::vector<bool> isTaken(line.size(), false);
    for (const NameSpan& name : names)
        std::fill(isTaken.begin() + static_cast<ptrdiff_t>(name.first),
                  isTaken.begin() + static_cast<ptrdiff_t>(name.last) + 1, true);

    const auto isLinkedBySign = [&](size_t at) {
        const WordSeparator before = line.word(at).before;
        return before == WordSeparator::comma || before == WordSeparator::slash ||
               before == WordSeparator::ampersand;
    };
    const auto isLinkedByWord = [&](size_t at) {
        return line.word(at).touches() && at > 0 && line.word(at - 1).isLink() && line.word(at - 1).touches();
    };
    const auto consider = [&](size_t at) {
        const NameWord& word = line.word(at);
        const NameWord& next = line.word(at + 1);
        const bool standsAlone = !next.touches() || next.isLower();
        const double needed = word.is(WordTrait::strongFirstName) ? -1.0 : 0.3;
        if (!word.canBeName || isTaken[at] || !word.isCapitalized() || !standsAlone ||
            word.before == WordSeparator::at || word.evidence.alone < needed ||
            evidenceBehind(line, {at, at}) < -1)
            return;
        isTaken[at] = true;
        names.push_back({at, at});
    };
    for (size_t index = 0; index < names.size(); ++index) { // grows: each name found may lead to the next
        const auto [first, last] = names[index];
        if (last + 1 < line.size() && isLinkedBySign(last + 1))
            consider(last + 1);
        else if (last + 2 < line.size() && isLinkedByWord(last + 2))
            consider(last + 2);
        if (first >= 1 && isLinkedBySign(first))
            consider(first - 1);
        else if (first >= 2 && isLinkedByWord(first))
            consider(first - 2);
    }
}

/// The name with a following "Jr." and the dot of an initial at its end.
TextRange rangeOf(const NameLine& line, NameSpan name) {
    size_t last = name.last;
    const NameWord& next = line.word(last + 1);
    const bool hasSuffix = last + 1 < line.size() && !name.isSingle() && next.is(WordTrait::suffix) &&
                           (next.touches() || next.before == WordSeparator::comma) && !next.isLower();
    if (hasSuffix)
        ++last;
    const qsizetype start = line.word(name.first).range.location;
    const qsizetype end = line.word(last).range.end();
    const bool isAbbreviated =
        line.word(last).isInitial() || (hasSuffix && (next.folded == "jr" || next.folded == "sr"));
    const bool hasDot = isAbbreviated && line.isFollowedBy(last, u".");
    return {start, end + (hasDot ? 1 : 0) - start};
}

} // namespace

ListNameTagger::ListNameTagger(const NameLexicon& lexicon) : m_lexicon(lexicon) {}

std::vector<TextRange> ListNameTagger::personalNames(const QString& text) const {
    const NameLine line(m_lexicon, text);
    std::vector<Candidate> candidates;
    for (size_t at = 0; at < line.size(); ++at) {
        addSpansFrom(line, at, candidates);
        addLastNameFirst(line, at, candidates);
    }
    std::vector<NameSpan> names = bestSpans(std::move(candidates), line.size());
    addCoordinated(line, names);

    std::vector<TextRange> ranges;
    for (const NameSpan& name : names)
        ranges.push_back(rangeOf(line, name));
    std::sort(ranges.begin(), ranges.end(),
              [](TextRange left, TextRange right) { return left.location < right.location; });
    return ranges;
}

} // namespace Veilshot
