#include "VeilshotCore/Analysis/NameTagging/NamesInSentences.h"

#include "VeilshotCore/Analysis/NameTagging/NameLikeness.h"

#include <algorithm>
#include <array>

namespace Veilshot {

namespace {

using LetterCase = NameToken::LetterCase;

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
    return isName || ((traits & WordTrait::strongFirstName) && !(traits & anyMeaning & ~ordinaryMeaning));
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

/// "Any time, Minty." ends with somebody's name, "made in Trondheim, Norway." does not.
bool isCalledAtTheEnd(const NameLine& line, size_t at) {
    constexpr size_t reach = 5;
    if (at == 0 || at > reach || line.word(at).before != WordSeparator::comma || !isNameLike(line.word(at)))
        return false;
    const NameWord& word = line.word(at);
    const bool isEnd = at + 1 == line.size() || line.isFollowedBy(at, u".") || line.isFollowedBy(at, u"!") ||
                       line.isFollowedBy(at, u"?");
    const bool isFirstName = word.is(anyFirstName) || !word.is(anyLastName);
    return isEnd && isFirstName && line.word(at - 1).isLower() && line.word(0).isCapitalized() &&
           !line.word(0).is(anyName);
}

/// "her daughter Clemency by phone".
bool isRelative(const NameLine& line, size_t at) {
    constexpr std::array<std::string_view, 26> relations{
        "daughter", "son",   "wife",   "husband", "brother", "sister",  "mother",     "father",  "mum",
        "dad",      "niece", "nephew", "fiance",  "fiancee", "datter",  "kone",       "mand",    "soster",
        "bror",     "mor",   "far",    "nevo",    "svoger",  "stepson", "svigerinde", "kaereste"};
    const NameWord& word = line.word(at);
    const NameWord& next = line.word(at + 1);
    if (at == 0 || !word.touches() || !line.word(at - 1).isLower() || !line.word(at - 1).isOneOf(relations) ||
        !word.isShapedLikeName() || (next.touches() && !next.isLower()))
        return false;
    return isFirstNameLike(word) || (word.is(anyName) && !word.is(anyMeaning & ~unusualMeaning));
}

/// "Ask Hyacinth or phone": a name, or what nobody knows but is spelt like one, behind such a word.
bool isAsked(const NameLine& line, size_t at) {
    constexpr std::array<std::string_view, 8> asking{"ask",   "asks", "asked", "tell",
                                                     "tells", "told", "sporg", "spurgte"};
    const NameWord& word = line.word(at);
    const NameWord& next = line.word(at + 1);
    if (at == 0 || !word.touches() || !word.isShapedLikeName() || (next.touches() && !next.isLower()))
        return false;
    const bool isAskedFor = at > 1 && line.word(at - 1).folded == "for" && line.word(at - 2).folded == "ask";
    const bool isNamed = word.is(anyName) && !word.is(anyMeaning & ~ordinaryMeaning);
    return (isAskedFor || line.word(at - 1).isOneOf(asking)) && (isNamed || isNameLike(word));
}

/// "Grace from the front desk wrote".
bool isFromSomewhere(const NameLine& line, size_t at) {
    constexpr size_t reach = 7;
    const NameWord& next = line.word(at + 1);
    if (line.word(at).touches() || !isFirstNameLike(line.word(at)) || !next.touches() || !next.isLower() ||
        !(next.folded == "from" || next.folded == "fra"))
        return false;
    for (size_t verb = at + 2; verb < std::min(at + reach, line.size()); ++verb) {
        if (line.word(verb).isLower() && line.word(verb).is(WordTrait::personVerb))
            return true;
    }
    return false;
}

} // namespace

std::vector<TextRange> namesInSentences(const NameLexicon& lexicon, const NameLine& line) {
    std::vector<TextRange> names;
    for (size_t at = 0; at < line.size(); ++at) {
        if (areActing(line, at)) {
            const TextRange first = line.word(at).range;
            names.push_back({first.location, line.word(at + 1).range.end() - first.location});
            ++at;
        } else if (isOwner(lexicon, line, at) || isAddressedOrExplained(line, at) || isSpeaking(line, at) ||
                   isIntroduced(line, at) || isGreetedAtTheEnd(line, at) || isNamedByRole(line, at) ||
                   isReachedByNumber(line, at) || isCalledAtTheEnd(line, at) || isRelative(line, at) ||
                   isAsked(line, at) || isFromSomewhere(line, at)) {
            names.push_back(line.word(at).range);
        }
    }
    return names;
}

} // namespace Veilshot
