#include "VeilshotCore/Analysis/NameTagging/NameSurroundings.h"

#include "VeilshotCore/Analysis/NameTagging/NameSpelling.h"

#include <algorithm>
#include <array>

namespace Veilshot {

namespace {

using LetterCase = NameToken::LetterCase;

/// What follows in "Mr. President" and "Miss You".
constexpr WordTraits neverAddressed = WordTrait::role | WordTrait::title | WordTrait::label |
                                      WordTrait::organisation | WordTrait::functionWord |
                                      WordTrait::personVerb;

/// Behind these even an ordinary word is a name. In capitals "HR" and "MS" mean something else.
bool isFormOfAddress(const NameWord& word) {
    constexpr std::array<std::string_view, 6> forms{"mr", "mrs", "ms", "dr", "hr", "fru"};
    return word.letterCase == LetterCase::title &&
           std::find(forms.begin(), forms.end(), word.folded) != forms.end();
}

/// "A/S" and "I/S" behind a name.
bool isCompanyForm(const NameLine& line, size_t at) {
    if (at + 1 >= line.size() || !line.word(at).isInitial())
        return false;
    const NameWord& next = line.word(at + 1);
    return next.before == WordSeparator::slash && next.folded == "s";
}

/// "Name & Sons", "Surname & Surname".
double evidenceOfAmpersand(const NameLine& line, NameSpan span) {
    const NameWord& word = line.word(span.last);
    const NameWord& next = line.word(span.last + 1);
    const bool isFirm = next.is(WordTrait::organisation) || next.folded == "son" || next.folded == "sons";
    const bool areSurnames = span.isSingle() && !word.is(WordTrait::strongFirstName);
    return isFirm || areSurnames ? -4.0 : 0;
}

double evidenceOfNextWord(const NameLine& line, NameSpan span) {
    const NameWord& next = line.word(span.last + 1);
    if (next.isLower()) {
        const bool isBeforeNumber = span.last + 2 < line.size() && line.word(span.last + 2).isNumber;
        if (next.is(WordTrait::organisation) && isBeforeNumber)
            return -5.0; // a street
        if (next.is(WordTrait::personVerb))
            return 1.5;
        return next.is(WordTrait::auxiliary) ? 0.5 : 0;
    }
    if (next.isNumber)
        return span.isSingle() ? -0.3 : 0;
    if (!next.isCapitalized())
        return 0;
    if (span.isSingle())
        return next.letterCase == line.word(span.last).letterCase ? -1.5 : -0.3;
    const bool isExpected = next.is(WordTraits(WordTrait::role) | WordTrait::label);
    return next.isOrdinary() && !isExpected ? -0.3 : 0;
}

/// Nothing else in the line. Two words that no list explains are rather a person's than a heading; so is
/// "Grace" with such a word behind it.
double evidenceOfFilledLine(const NameLine& line, NameSpan span) {
    const auto isUnexplained = [](const NameWord& word, double least) {
        return !word.is(anyMeaning) && (word.is(anyName) || word.evidence.alone >= least) &&
               word.letterCase == LetterCase::title && word.range.length > 2;
    };
    constexpr double strange = 0;
    constexpr double ratherStrange = -1; // many last names end like Danish nouns
    const NameWord& opening = line.word(span.first);
    const NameWord& closing = line.word(span.last);
    if (opening.is(WordTrait::strongFirstName) && isUnexplained(closing, ratherStrange))
        return opening.is(anyMeaning) ? 0.9 : 0.6;
    const auto isSpeltLikeName = [](const NameWord& word) {
        constexpr double least = 0.5;
        return !word.is(anyMeaning) && !word.is(anyName) && spellingOfName(word.folded) >= least;
    };
    if (isSpeltLikeName(opening) && isUnexplained(closing, ratherStrange))
        return 1.6;
    const bool isBeforeName = closing.is(WordTrait::strongFirstName | WordTrait::strongLastName);
    if (!isUnexplained(opening, isBeforeName ? ratherStrange : strange) || !isUnexplained(closing, strange))
        return 0;
    return opening.is(anyName) || closing.is(anyName) ? 0.6 : 1.4;
}

/// Nothing else in the cell: more likely a name than the same words in a sentence.
double evidenceOfCell(const NameLine& line, NameSpan span) {
    if (!line.opensCell(span.first) || !line.closesCell(span.last) || line.word(span.first).range.length < 3)
        return 0;
    bool hasMeaning = false;
    bool hasName = false;
    for (size_t at = span.first; at <= span.last; ++at) {
        hasMeaning = hasMeaning || line.word(at).is(anyMeaning);
        hasName = hasName || line.word(at).is(anyName);
    }
    if (!span.isSingle() && line.isFilledBy(span))
        return evidenceOfFilledLine(line, span);
    if (hasMeaning || !hasName)
        return 0;
    return span.isSingle() ? 0.8 : 0.6;
}

/// A capital in the midst of small letters marks a proper noun.
double evidenceOfSentence(const NameLine& line, NameSpan span) {
    const NameWord& word = line.word(span.first);
    const bool runsOn = word.touches() || (!span.isSingle() && word.before == WordSeparator::comma);
    const bool isStrong = word.is(WordTrait::strongFirstName | WordTrait::strongLastName);
    const bool isAbbreviation = word.letterCase == LetterCase::upper && !isStrong;
    if (span.first == 0 || !runsOn || (span.isSingle() && (word.is(WordTrait::place) || isAbbreviation)))
        return 0;
    const NameWord& next = line.word(span.last + 1);
    const bool isAmongSmall = line.word(span.first - 1).isLower() && (!next.touches() || next.isLower());
    if (!isAmongSmall)
        return 0;
    return span.isSingle() ? 1.0 : 0.5;
}

} // namespace

double wordEvidence(const NameLine& line, NameSpan span) {
    const NameWord& opening = line.word(span.first);
    if (span.isSingle())
        return opening.evidence.alone;
    const NameWord& closing = line.word(span.last);
    const double usual = opening.evidence.asFirstName + closing.evidence.asLastName;
    const double reversed = opening.evidence.asLastName + closing.evidence.asFirstName - 1.0;
    double points = std::max(usual, reversed);
    if (opening.is(WordTrait::strongFirstName) && closing.is(WordTrait::strongLastName))
        points += 0.4;
    if (opening.isInitial() && !line.isFollowedBy(span.first, u"."))
        points -= opening.folded == "i" || opening.folded == "a" ? 3.0 : 0.5; // "I" and "A" begin sentences
    for (size_t at = span.first + 1; at < span.last; ++at) {
        const NameWord& word = line.word(at);
        const NameWord& next = line.word(at + 1);
        if (word.isInitial() || word.is(WordTrait::particle))
            points += 0.4;
        else if (word.is(anyLastName) && !word.is(anyFirstName) && next.is(anyFirstName) &&
                 !next.is(anyLastName))
            points -= 3.0; // one name ends here, the next begins
        else
            points += 0.7 * std::max(word.evidence.asFirstName, word.evidence.asLastName) - 0.1;
    }
    return points;
}

double evidenceBefore(const NameLine& line, NameSpan span) {
    const NameWord& word = line.word(span.first);
    if (span.first == 0)
        return word.before == WordSeparator::dash ? 0.8 : 0;
    const NameWord& left = line.word(span.first - 1);
    const NameWord& right = line.word(span.last + 1);
    const bool touches = word.touches();
    const bool isLabelled =
        touches || word.before == WordSeparator::colon || word.before == WordSeparator::wide;

    // Words that announce a name, the most reliable first.
    if (left.is(WordTrait::title) && touches && !left.isLower())
        return isFormOfAddress(left) && !word.is(neverAddressed) ? 7.0 : 3.0;
    if (left.is(WordTrait::greeting) && (touches || word.before == WordSeparator::comma)) {
        if (word.is(WordTrait::frequentWord) && !word.is(anyFirstName) && span.isSingle())
            return 1.0; // "Welcome Back": few people are greeted by their last name
        const bool isAddressed = touches && left.letterCase == LetterCase::title && !right.touches();
        return isAddressed && word.is(WordTrait::strongFirstName) ? 3.0 : 2.0;
    }
    if (left.is(WordTrait::label) && word.before == WordSeparator::colon)
        return 2.0;
    const NameWord* beforeLeft = span.first >= 2 ? &line.word(span.first - 2) : nullptr;
    if (left.isLink() && touches && beforeLeft && beforeLeft->is(WordTrait::functionWord))
        return 1.0; // "You and Elen"
    const bool isInsideName =
        left.is(WordTrait::particle) && beforeLeft && beforeLeft->is(anyName) && beforeLeft->isCapitalized();
    if (left.is(WordTrait::nameBefore) && isLabelled && !isInsideName)
        return 1.5;
    if (left.is(WordTrait::label) && isLabelled)
        return 1.0;
    if (left.is(WordTrait::role) && touches)
        return left.isCapitalized() ? 1.5 : 1.0;
    if (left.is(WordTrait::namePossible) && touches)
        return 0.8;

    if (left.is(WordTrait::beforePlace) && touches && !left.isLower())
        return -4.0;
    if (word.before == WordSeparator::ampersand)
        return span.isSingle() && !word.is(WordTrait::strongFirstName) ? -3.0 : 0;
    if (word.before == WordSeparator::dash && line.closesCell(span.first))
        return 1.5; // a signature
    if (left.is(WordTrait::locative) && touches && left.isLower())
        return span.isSingle() ? -1.5 : -0.4;
    if (word.before == WordSeparator::comma && span.isSingle() && left.isLower() &&
        right.before == WordSeparator::edge)
        return 0.8; // "Welcome back, Anna"
    if (!touches || !left.isCapitalized())
        return 0;
    if (!span.isSingle())
        return left.isOrdinary() ? -0.5 : -0.2;
    const bool beginsSentence = span.first == 1 && left.letterCase == LetterCase::title &&
                                left.isOrdinary() && !right.isCapitalized();
    return beginsSentence ? -0.5 : -1.5;
}

double evidenceBehind(const NameLine& line, NameSpan span) {
    const NameWord& next = line.word(span.last + 1);
    if (next.before == WordSeparator::ampersand)
        return evidenceOfAmpersand(line, span);
    if (line.isFollowedBy(span.last, u"<") || line.isFollowedBy(span.last, u"\"<"))
        return 1.5; // an e-mail address
    if (next.before == WordSeparator::possessive && span.isSingle()) {
        const bool ownsSomething = span.last + 1 < line.size();
        return ownsSomething ? 1.5 : line.opensCell(span.last) ? -1.0 : 0; // "Anna's phone", but "Wendy's"
    }
    if (!next.touches() && next.before != WordSeparator::comma)
        return 0;
    const bool isLabel =
        span.last + 2 < line.size() && line.word(span.last + 2).before == WordSeparator::colon;
    const bool isOrganisation = next.is(WordTrait::organisation) && !next.isLower() && !isLabel;
    if (isOrganisation || isCompanyForm(line, span.last + 1))
        return -5.0;
    return next.touches() ? evidenceOfNextWord(line, span) : 0;
}

double surroundingEvidence(const NameLine& line, NameSpan span) {
    const double sides = evidenceBefore(line, span) + evidenceBehind(line, span);
    if (!line.word(span.first).isLower())
        return sides + evidenceOfCell(line, span) + evidenceOfSentence(line, span);
    if (span.isSingle())
        return sides + (line.isSmall() ? 1.5 : 0);
    return sides - (line.opensCell(span.first) && line.closesCell(span.last) ? 0 : 1.5);
}

} // namespace Veilshot
