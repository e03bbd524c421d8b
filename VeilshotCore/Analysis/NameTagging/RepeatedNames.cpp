#include "VeilshotCore/Analysis/NameTagging/RepeatedNames.h"

#include "VeilshotCore/Analysis/NameTagging/NameDoubts.h"
#include "VeilshotCore/Analysis/NameTagging/NameLine.h"
#include "VeilshotCore/Analysis/NameTagging/NameTokenizer.h"
#include "VeilshotCore/Analysis/RepeatedWordLine.h"

#include <algorithm>
#include <string>

namespace Veilshot {

namespace {

bool isWord(const NameToken& token) {
    return token.kind == NameToken::Kind::word;
}

/// The words of the names of several words, looked up as in the lexicon.
std::vector<std::string> wordsOfFullNames(const QString& passage, const NameTagger& tagger) {
    constexpr qsizetype shortest = 3;
    std::vector<std::string> words;
    const std::vector<NameToken> tokens = nameTokens(passage);
    for (const TextRange name : tagger.personalNames(passage)) {
        const auto isInName = [&](const NameToken& token) {
            return isWord(token) && token.range.intersects(name);
        };
        if (std::ranges::count_if(tokens, isInName) < 2)
            continue;
        for (const NameToken& token : tokens) {
            if (isInName(token) && token.range.length >= shortest)
                words.push_back(token.folded);
        }
    }
    return words;
}

/// Those of the words at the place that stand for nothing else there.
std::vector<TextRange> namesInPlace(QStringView place, const std::vector<std::string>& words) {
    const NameLine line(NameLexicon::shared(), place);
    const std::vector<NameToken> tokens = nameTokens(place);
    std::vector<TextRange> names;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const NameWord& word = line.word(at);
        const bool isRepeated = word.letterCase != NameToken::LetterCase::lower &&
                                std::ranges::find(words, word.folded) != words.end();
        const bool isTold = !word.is(anyMeaning) || (line.size() == 1 && word.is(anyName));
        if (isRepeated && isTold && !line.opensOrganisation(at) &&
            !isOtherThanName(word.range, place, tokens))
            names.push_back(word.range);
    }
    return names;
}

} // namespace

std::vector<TextRange> repeatedNames(const QString& line, const NameTagger& tagger) {
    qsizetype end = line.indexOf(repeatSeparator);
    const std::vector<std::string> words = wordsOfFullNames(line.first(end), tagger);
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
