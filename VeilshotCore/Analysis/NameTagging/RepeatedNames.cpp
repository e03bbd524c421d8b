#include "VeilshotCore/Analysis/NameTagging/RepeatedNames.h"

#include "VeilshotCore/Analysis/NameTagging/NameDoubts.h"
#include "VeilshotCore/Analysis/NameTagging/NameLine.h"
#include "VeilshotCore/Analysis/NameTagging/NameTokenizer.h"
#include "VeilshotCore/Analysis/RepeatedWordLine.h"

#include <algorithm>
#include <array>
#include <string>

namespace Veilshot {

namespace {

bool isWord(const NameToken& token) {
    return token.kind == NameToken::Kind::word;
}

/// "Hi Tam": who is greeted by a single name is called by it elsewhere too.
bool isGreeted(const NameLine& line, TextRange name) {
    for (std::size_t at = 1; at < line.size(); ++at) {
        if (line.word(at).range == name)
            return line.word(at).touches() && line.word(at - 1).is(WordTrait::greeting);
    }
    return false;
}

/// The words of the names of several words and of those who are greeted, looked up as in the lexicon.
std::vector<std::string> wordsOfNames(const QString& passage, const NameTagger& tagger) {
    constexpr qsizetype shortest = 3;
    std::vector<std::string> words;
    const std::vector<NameToken> tokens = nameTokens(passage);
    const NameLine line(NameLexicon::shared(), passage);
    for (const TextRange name : tagger.personalNames(passage)) {
        const auto isInName = [&](const NameToken& token) {
            return isWord(token) && token.range.intersects(name);
        };
        if (std::ranges::count_if(tokens, isInName) < 2 && !isGreeted(line, name))
            continue;
        for (const NameToken& token : tokens) {
            if (isInName(token) && token.range.length >= shortest)
                words.push_back(token.folded);
        }
    }
    return words;
}

/// "ask for Rose or", "right. Grace, can you": a capital that neither a heading nor the beginning of a
/// sentence explains.
bool isCapitalInSentence(const NameLine& line, std::size_t at) {
    constexpr std::array<std::string_view, 10> articles{"the", "a",  "an",  "this", "our",
                                                        "en",  "et", "den", "det",  "vores"};
    constexpr WordTraits neverName = WordTrait::functionWord | WordTrait::calendar | WordTrait::title;
    const NameWord& word = line.word(at);
    const NameWord& next = line.word(at + 1);
    if (!word.isShapedLikeName() || !word.is(anyName) || word.is(neverName))
        return false;
    const bool isBehindText = at > 0 && (word.touches() || word.before == WordSeparator::comma) &&
                              line.word(at - 1).isLower() && !line.word(at - 1).isOneOf(articles);
    const bool isAddressed = next.before == WordSeparator::comma && next.isLower();
    // "Lark authored 4 hours ago".
    const bool acts = at == 0 && next.touches() && next.isLower() &&
                      (next.is(WordTrait::personVerb) || next.folded.ends_with("ed"));
    const bool isBehindPlace =
        at > 0 && line.word(at - 1).is(WordTrait::locative) && word.is(WordTrait::place);
    return (isBehindText || isAddressed || acts) && !isBehindPlace &&
           !(next.touches() && next.isCapitalized());
}

/// Those of the words at the place that stand for nothing else there, with the initials in front of them.
std::vector<TextRange> namesInPlace(QStringView place, const std::vector<std::string>& words) {
    const NameLine line(NameLexicon::shared(), place);
    const std::vector<NameToken> tokens = nameTokens(place);
    std::vector<TextRange> names;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const NameWord& word = line.word(at);
        const bool isRepeated = word.letterCase != NameToken::LetterCase::lower &&
                                std::ranges::find(words, word.folded) != words.end();
        std::size_t first = at;
        while (first > 0 && line.word(first).touches() && line.word(first - 1).isInitial())
            --first;
        const bool isTold = !word.is(anyMeaning) ||
                            (line.isFilledBy({at, at}) && word.is(anyName) &&
                             (line.size() == 1 || !word.is(WordTrait::calendar))) ||
                            first < at || isCapitalInSentence(line, at);
        if (!isRepeated || !isTold || line.opensOrganisation(at) ||
            isOtherThanName(word.range, place, tokens))
            continue;
        const qsizetype start = line.word(first).range.location;
        names.push_back({start, word.range.end() - start});
    }
    return names;
}

} // namespace

std::vector<TextRange> repeatedNames(const QString& line, const NameTagger& tagger) {
    qsizetype end = line.indexOf(repeatSeparator);
    const std::vector<std::string> words = wordsOfNames(line.first(end), tagger);
    std::vector<TextRange> names;
    while (end < line.size() && !words.empty()) {
        const qsizetype start = end + repeatSeparator.size();
        const qsizetype next = line.indexOf(repeatSeparator, start);
        end = next < 0 ? line.size() : next;
        for (const TextRange name : namesInPlace(QStringView(line).sliced(start, end - start), words))
            names.push_back({start + name.location, name.length});
    }
    return names;
}

} // namespace Veilshot
