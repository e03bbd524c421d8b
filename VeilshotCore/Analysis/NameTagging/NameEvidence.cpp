#include "VeilshotCore/Analysis/NameTagging/NameEvidence.h"

#include "VeilshotCore/Analysis/NameTagging/NameSpelling.h"

#include <algorithm>
#include <array>

namespace Veilshot {

namespace {

/// Below it, a word nobody knows is rather a Danish noun.
constexpr double leastSpelling = -3;

using LetterCase = NameToken::LetterCase;

/// What a word loses when it is a name and something else besides.
struct Doubt {
    WordTrait trait;
    double asFirstName;
    double asLastName;
    double alone;
};

constexpr std::array doubts{
    Doubt{WordTrait::frequentWord, 1.8, 1.2, 2.2},   Doubt{WordTrait::word, 1.0, 0.7, 1.4},
    Doubt{WordTrait::rareWord, 0.3, 0.2, 0.3},       Doubt{WordTrait::danishWord, 1.0, 0.7, 1.5},
    Doubt{WordTrait::rareDanishWord, 0.2, 0.1, 0.2}, Doubt{WordTrait::place, 0.7, 0.9, 2.0},
    Doubt{WordTrait::calendar, 1.0, 1.5, 2.5},       Doubt{WordTrait::product, 1.5, 1.2, 2.2},
    Doubt{WordTrait::role, 2.0, 1.0, 2.0},           Doubt{WordTrait::label, 2.0, 2.0, 2.0},
    Doubt{WordTrait::greeting, 1.5, 1.5, 2.0},       Doubt{WordTrait::personVerb, 1.0, 1.5, 1.5},
    Doubt{WordTrait::auxiliary, 0.3, 1.0, 0.5},      Doubt{WordTrait::organisation, 2.0, 2.5, 3.0},
    Doubt{WordTrait::beforePlace, 4.0, 2.0, 1.0},    Doubt{WordTrait::title, 3.0, 3.0, 3.0},
    Doubt{WordTrait::suffix, 2.0, 2.0, 3.0},         Doubt{WordTrait::functionWord, 4.0, 2.0, 5.0},
    Doubt{WordTrait::particle, 1.0, 0.3, 3.0},
};

template<size_t count>
bool endsWithOneOf(std::string_view word, const std::array<std::string_view, count>& endings) {
    return std::any_of(endings.begin(), endings.end(), [&](std::string_view ending) {
        return word.size() >= ending.size() + 2 && word.ends_with(ending);
    });
}

/// Endings that hardly any ordinary word of the two languages has.
bool looksLikeLastName(std::string_view folded) {
    // Not plain "sen", which "processen" and "kursen" have, too.
    constexpr std::array<std::string_view, 22> endings{
        "ersen", "nsen", "lsen", "dsen", "tsen", "gsen", "msen", "sson", "gaard",  "ski",   "sky",
        "cki",   "wicz", "enko", "ova",  "ov",   "oglu", "ovic", "vich", "shvili", "quist", "poulos"};
    return endsWithOneOf(folded, endings);
}

/// Endings of nouns, verbs and adjectives, for the many words no list holds (Danish compounds above all).
bool looksLikeOrdinaryWord(std::string_view folded) {
    constexpr std::array<std::string_view, 44> endings{
        "bank",    "selskab", "forbund", "forbundet", "udvalg", "udvalget", "parti", "partiet", "skole",
        "centret", "ing",     "ings",    "inger",     "ingen",  "else",     "elsen", "elser",   "hed",
        "heder",   "heden",   "lig",     "lige",      "isk",    "iske",     "ede",   "erne",    "ene",
        "eren",    "tion",    "ioner",   "ment",      "ness",   "able",     "ible",  "ity",     "ful",
        "less",    "ism",     "bar",     "skab",      "eret",   "tet",      "ies",   "ware"};
    return endsWithOneOf(folded, endings);
}

WordTraits hyphenatedTraits(const NameLexicon& lexicon, std::string_view folded) {
    WordTraits all;
    bool hasWord = false;
    std::string_view lastPart;
    while (!folded.empty()) {
        const size_t end = std::min(folded.find('-'), folded.size());
        lastPart = folded.substr(0, end);
        folded.remove_prefix(std::min(end + 1, folded.size()));
        const WordTraits traits = lexicon.traits(lastPart);
        hasWord = hasWord || ((traits & anyMeaning) && !(traits & (anyName | WordTrait::particle)));
        if (!(traits & WordTrait::particle))
            all |= traits;
    }
    if (!hasWord)
        return all & anyName;
    // "Reviewed-by" speaks for a name as "by" does.
    const WordTraits cues = lexicon.traits(lastPart) & (WordTraits(WordTrait::label) | WordTrait::nameBefore);
    return cues | WordTrait::word;
}

/// "I'm", "can't", "we'll".
bool isContraction(QStringView word) {
    const qsizetype apostrophe = std::max(word.lastIndexOf(u'\''), word.lastIndexOf(u'’'));
    if (apostrophe <= 0)
        return false;
    const QStringView ending = word.sliced(apostrophe + 1);
    return ending == u"m" || ending == u"t" || ending == u"d" || ending == u"ve" || ending == u"ll" ||
           ending == u"re";
}

/// The word with l for a capital I or the other way round, where it may have been misread.
WordTraits confusedLetterTraits(const NameLexicon& lexicon, const NameToken& token, QStringView word) {
    if (token.folded.size() != static_cast<size_t>(word.size()) || word.size() < 3)
        return {};
    for (qsizetype at = 0; at < word.size(); ++at) {
        const QChar c = word[at];
        const bool isFirst = at == 0;
        const bool mayBeOther = c == u'1' || c == u'|' ||
                                (c == u'I' && token.letterCase != LetterCase::upper) ||
                                (c == u'l' && isFirst);
        if (!mayBeOther)
            continue;
        std::string other = token.folded;
        other[static_cast<size_t>(at)] = other[static_cast<size_t>(at)] == 'l' ? 'i' : 'l';
        const WordTraits traits = lexicon.traits(other);
        if (traits & (WordTraits(WordTrait::strongFirstName) | WordTrait::strongLastName))
            return traits;
    }
    return {};
}

} // namespace

WordTraits lineWordTraits(const NameLexicon& lexicon, const NameToken& token, QStringView line) {
    const std::string& folded = token.folded;
    const QStringView word = line.sliced(token.range.location, token.range.length);
    if (folded.size() < 2)
        return {};
    if (isContraction(word))
        return WordTrait::functionWord;
    if (const WordTraits traits = lexicon.traits(folded))
        return traits;
    if (folded.find('-') != std::string::npos)
        return hyphenatedTraits(lexicon, folded);
    if (const WordTraits traits = confusedLetterTraits(lexicon, token, word))
        return traits;
    if (folded.size() > 3 && folded.back() == 's')
        return lexicon.traits(std::string_view(folded).substr(0, folded.size() - 1));
    return {};
}

NameEvidence nameEvidence(const NameToken& token, WordTraits traits) {
    if (token.letterCase == LetterCase::initial)
        return {1.1, -1.0, -5.0};
    const bool isOrdinary = bool(traits & anyMeaning);
    if (!(traits & anyName)) {
        if (isOrdinary)
            return {-3.0, -2.5, -5.0};
        if (looksLikeOrdinaryWord(token.folded))
            return {-2.0, -0.7, -3.0};
        const bool isAbbreviation = token.letterCase == LetterCase::upper && token.folded.size() <= 3;
        if (isAbbreviation || token.letterCase == LetterCase::mixed)
            return {-2.0, -2.0, -4.0};
        if (looksLikeLastName(token.folded))
            return {0.3, 1.8, 1.8};
        if (token.letterCase == LetterCase::upper)
            return {0.3, 0.5, -2.0};
        if (spellingOfName(token.folded) < leastSpelling)
            return {0.0, 0.2, -0.7};
        return {0.3, 0.5, 0.3};
    }

    NameEvidence evidence;
    const bool isFirst = bool(traits & anyFirstName);
    const bool isLast = bool(traits & anyLastName);
    const double first = traits & WordTrait::strongFirstName ? 3.0 : isFirst ? 1.5 : 0;
    const double last = traits & WordTrait::strongLastName ? 2.5 : isLast ? 1.5 : 0;
    evidence.asFirstName = isFirst ? first : 0.7;
    evidence.asLastName = isLast ? last : 0.7;
    evidence.alone = std::max(first, last);
    if (isFirst && isLast)
        evidence.alone += 0.2;
    for (const Doubt& doubt : doubts) {
        if (traits & doubt.trait) {
            evidence.asFirstName -= doubt.asFirstName;
            evidence.asLastName -= doubt.asLastName;
            evidence.alone -= doubt.alone;
        }
    }
    const bool isRare = first < 3.0 && last < 2.5;
    if (isRare && (traits & (WordTraits(WordTrait::frequentWord) | WordTrait::word | WordTrait::danishWord)))
        evidence.alone -= 1.0;
    if (token.letterCase == LetterCase::upper && isRare)
        evidence.alone -= 1.0; // rather an abbreviation
    if (token.letterCase == LetterCase::lower) {
        // Without the capital only names that mean nothing else count.
        const bool isClear = (traits & WordTrait::strongFirstName) && !isOrdinary && token.folded.size() > 2;
        evidence.asFirstName = isClear ? evidence.asFirstName : -5.0;
        evidence.alone = isClear ? 0.9 : -5.0;
    }
    return evidence;
}

} // namespace Veilshot
