#include "VeilshotCore/Analysis/NameTagging/NamePatterns.h"

#include "VeilshotCore/Analysis/NameTagging/NameLine.h"
#include "VeilshotCore/Analysis/NameTagging/NameSpelling.h"

#include <algorithm>
#include <array>

namespace Veilshot {

namespace {

using LetterCase = NameToken::LetterCase;

constexpr WordTraits ordinary = WordTrait::frequentWord | WordTrait::word | WordTrait::rareWord |
                                WordTrait::danishWord | WordTrait::rareDanishWord | WordTrait::auxiliary |
                                WordTrait::calendar | WordTrait::namePossible | WordTrait::place;

/// A capitalized word that is no other word, or one that nobody knows but that is spelt like a name.
bool isNameLike(const NameWord& word) {
    constexpr double least = -1.5;
    return word.isShapedLikeName() && !word.is(anyMeaning) &&
           (word.is(anyName) || spellingOfName(word.folded) >= least);
}

/// As above, or a common first name that means something else as well.
bool isFirstNameLike(const NameWord& word) {
    const bool isCommon = word.letterCase == LetterCase::title && word.is(WordTrait::strongFirstName) &&
                          !word.is(anyMeaning & ~ordinary);
    return isCommon || isNameLike(word);
}

/// "Konrads mor", "Marks kontor", "Faith's bike": for words that are no name only what people have.
bool isOwner(const NameLexicon& lexicon, const NameLine& line, size_t at) {
    constexpr std::array<std::string_view, 32> owned{
        "mor",   "far",    "mobil",  "telefon",    "nummer",   "kontor",  "adresse", "mail",
        "konto", "cpr",    "cpr-nr", "kone",       "mand",     "son",     "datter",  "soster",
        "bror",  "bil",    "hus",    "fodselsdag", "sister",   "brother", "mother",  "father",
        "mum",   "office", "phone",  "number",     "birthday", "mormor",  "farmor",  "kaereste"};
    const NameWord& word = line.word(at);
    const NameWord& next = line.word(at + 1);
    if (word.letterCase != LetterCase::title || word.is(WordTrait::functionWord) || !next.isLower())
        return false;
    std::string_view key = word.folded;
    if (next.before != WordSeparator::possessive) {
        if (!next.touches() || !key.ends_with('s'))
            return false;
        key.remove_suffix(1);
        if (lexicon.traits(word.folded) && !next.isOneOf(owned))
            return false;
    }
    const WordTraits traits = lexicon.traits(key);
    const bool isName = (traits & anyFirstName) && !(traits & anyMeaning);
    return isName || ((traits & WordTrait::strongFirstName) && !(traits & anyMeaning & ~ordinary));
}

/// "Gethin, please …" and "Then Will, who …".
bool isAddressedOrExplained(const NameLine& line, size_t at) {
    constexpr std::array<std::string_view, 20> addressing{
        "please", "can",   "could", "would", "will", "do",  "did", "are", "you",  "your",
        "thanks", "thank", "kan",   "vil",   "skal", "har", "du",  "tak", "husk", "gider"};
    constexpr std::array<std::string_view, 4> explaining{"who", "whose", "whom", "som"};
    const NameWord& next = line.word(at + 1);
    if (next.before != WordSeparator::comma || !next.isLower() || !isFirstNameLike(line.word(at)))
        return false;
    return (at == 0 && next.isOneOf(addressing)) || next.isOneOf(explaining);
}

/// "Owain: bring a chair", as messages are shown in a list.
bool isSpeaking(const NameLine& line, size_t at) {
    const NameWord& word = line.word(at);
    return at == 0 && line.word(1).before == WordSeparator::colon && word.is(anyFirstName) &&
           isNameLike(word);
}

/// "Welcome back, Caoimhe".
bool isGreetedAtTheEnd(const NameLine& line, size_t at) {
    constexpr size_t reach = 4;
    if (at == 0 || line.word(at).before != WordSeparator::comma || at + 1 != line.size() || at > reach ||
        !isFirstNameLike(line.word(at)))
        return false;
    return line.word(0).is(WordTrait::greeting) || line.word(0).folded == "good" ||
           line.word(0).folded == "god";
}

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
                             word.letterCase == LetterCase::title && !word.is(anyMeaning & ~ordinary));
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
    constexpr WordTraits unusual =
        WordTrait::word | WordTrait::rareWord | WordTrait::danishWord | WordTrait::rareDanishWord;
    if (at + 1 >= line.size() || !line.word(at + 1).touches() || !line.isFilledBy({at, at + 1}))
        return false;
    const NameWord& word = line.word(at);
    const NameWord& next = line.word(at + 1);
    const bool areTitles = word.letterCase == LetterCase::title && next.letterCase == LetterCase::title;
    const bool isSpeltLikeName = !next.is(anyMeaning | anyName) && spellingOfName(next.folded) >= least;
    const bool isLastName = next.is(WordTrait::strongLastName) && !next.is(anyMeaning);
    return areTitles && word.is(unusual) && !word.is(anyMeaning & ~unusual) && next.canBeName &&
           next.range.length > 3 && (isSpeltLikeName || isLastName);
}

/// "Zbigniew topatka" and nothing else: a surname whose first letter was misread.
bool isMisreadPair(const NameLine& line, size_t at) {
    constexpr qsizetype shortest = 4;
    const NameWord& next = line.word(at + 1);
    return line.isFilledBy({at, at + 1}) && isNameLike(line.word(at)) && line.word(at).is(anyFirstName) &&
           next.touches() && next.isLower() && !next.traits && next.range.length >= shortest;
}

/// "Ottavia" and nothing else: a first name, since many last names are towns, no other word and spelt like a
/// name.
bool isLoneName(const NameLine& line, size_t at) {
    constexpr double least = 0;
    const NameWord& word = line.word(at);
    return line.isFilledBy({at, at}) && word.letterCase == LetterCase::title && word.canBeName &&
           word.range.length > 3 && word.is(anyFirstName) && !word.is(anyMeaning) &&
           spellingOfName(word.folded) >= least;
}

/// "Tante Saskiya", "Served by Saskiya".
bool isIntroduced(const NameLine& line, size_t at) {
    constexpr std::array<std::string_view, 16> relatives{
        "tante", "onkel", "moster", "faster",  "mormor",  "morfar", "farmor", "farfar",
        "uncle", "aunt",  "auntie", "grandma", "grandpa", "nana",   "cousin", "fatter"};
    constexpr std::array<std::string_view, 32> deeds{
        "served",    "written",  "posted",   "created", "reviewed",     "approved", "edited",  "uploaded",
        "requested", "opened",   "closed",   "merged",  "shared",       "booked",   "ordered", "signed",
        "submitted", "reported", "resolved", "skrevet", "oprettet",     "godkendt", "voice",   "music",
        "photo",     "photos",   "design",   "drawing", "illustration", "text",     "story",   "translation"};
    if (at == 0 || !line.word(at).touches() || !isNameLike(line.word(at)))
        return false;
    const NameWord& left = line.word(at - 1);
    if (left.isOneOf(relatives))
        return true;
    const bool isBy = left.folded == "by" || left.folded == "af";
    return isBy && at > 1 && line.word(at - 2).isOneOf(deeds) &&
           !(line.word(at + 1).touches() && line.word(at + 1).isCapitalized());
}

/// "Sekretær: Hrefna - Version 6", "the buyer's brother, Zbigniew, against".
bool isNamedByRole(const NameLine& line, size_t at) {
    if (at == 0 || !line.word(at - 1).is(WordTrait::role))
        return false;
    const NameWord& word = line.word(at);
    const bool isAside = word.before == WordSeparator::comma &&
                         line.word(at + 1).before == WordSeparator::comma && word.is(anyFirstName) &&
                         line.word(at - 1).isLower();
    return (word.before == WordSeparator::colon || isAside) && isNameLike(word) && line.closesCell(at);
}

/// "position 60: Gwil on 07700 900 461".
bool isReachedByNumber(const NameLine& line, size_t at) {
    constexpr std::array<std::string_view, 4> links{"on", "at", "paa", "pa"};
    constexpr qsizetype fewestDigits = 7;
    const NameWord& link = line.word(at + 1);
    if (at == 0 || !isNameLike(line.word(at)) || !link.isLower() || !link.isOneOf(links))
        return false;
    qsizetype digits = 0;
    for (size_t number = at + 2; number < line.size() && line.word(number).isNumber; ++number)
        digits += line.word(number).range.length;
    return digits >= fewestDigits;
}

/// "Gebremedhin Tesfaye set priority": what opens the line and does what people do.
bool areActing(const NameLine& line, size_t at) {
    constexpr std::array<std::string_view, 10> deeds{"set",   "gave", "brings", "brought", "took",
                                                     "takes", "made", "noted",  "found",   "satte"};
    if (at > 0 || line.size() < 3 || !line.word(1).touches())
        return false;
    const NameWord& verb = line.word(2);
    return isNameLike(line.word(0)) && isNameLike(line.word(1)) && verb.touches() && verb.isLower() &&
           (verb.is(WordTrait::personVerb) || verb.isOneOf(deeds));
}

/// "Kahurangi, Moana" or "Penn, William T." and nothing else.
bool isLastNameFirst(const NameLine& line, size_t at) {
    const NameWord& next = line.word(at + 1);
    const size_t last = isDottedInitial(line, at + 2) ? at + 2 : at + 1;
    return next.before == WordSeparator::comma && line.isFilledBy({at, last}) && isNameLike(line.word(at)) &&
           isNameLike(next) && next.is(anyFirstName) && !line.word(at).is(anyFirstName);
}

TextRange rangeOf(const NameLine& line, size_t first, size_t last) {
    const qsizetype start = line.word(first).range.location;
    const qsizetype dot = isDottedInitial(line, last) ? 1 : 0;
    return {start, line.word(last).range.end() + dot - start};
}

} // namespace

std::vector<TextRange> namesByPattern(const NameLexicon& lexicon, QStringView text) {
    const NameLine line(lexicon, text);
    std::vector<TextRange> names;
    for (size_t at = 0; at < line.size(); ++at) {
        if (const std::optional<size_t> last = endOfFormedName(line, at)) {
            names.push_back(rangeOf(line, at, *last));
            at = *last;
        } else if (isByline(line, at) || isStrangePair(line, at) || isMisreadPair(line, at) ||
                   areActing(line, at) || isLastNameFirst(line, at)) {
            names.push_back(rangeOf(line, at, at + 1));
            ++at;
        } else if (isOwner(lexicon, line, at) || isAddressedOrExplained(line, at) || isSpeaking(line, at) ||
                   isIntroduced(line, at) || isGreetedAtTheEnd(line, at) || isLoneName(line, at) ||
                   isNamedByRole(line, at) || isReachedByNumber(line, at)) {
            names.push_back(rangeOf(line, at, at));
        }
    }
    return names;
}

} // namespace Veilshot
