#include "VeilshotCore/Analysis/NameTagging/RepeatedNames.h"

#include "VeilshotCore/Analysis/NameTagging/NameDoubts.h"
#include "VeilshotCore/Analysis/NameTagging/NameEvidence.h"
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

/// Whether the capitalised words from here on are a company's: "Sandoval Masonry LLC".
bool opensOrganisation(const std::vector<NameToken>& tokens, std::size_t at) {
    for (++at;
         at < tokens.size() && isWord(tokens[at]) && tokens[at].letterCase != NameToken::LetterCase::lower;
         ++at) {
        if (NameLexicon::shared().traits(tokens[at].folded).testFlag(WordTrait::organisation))
            return true;
    }
    return false;
}

} // namespace

bool hasRepeatedWord(const QString& line) {
    return line.contains(repeatSeparator);
}

std::vector<TextRange> repeatedNames(const QString& line, const NameTagger& tagger) {
    const qsizetype start = line.lastIndexOf(repeatSeparator) + repeatSeparator.size();
    const QString place = line.sliced(start);
    const std::vector<NameToken> tokens = nameTokens(place);
    const bool isAlone = std::ranges::count_if(tokens, [](const NameToken& token) {
                             return isWord(token) || token.kind == NameToken::Kind::number;
                         }) == 1;
    const std::vector<std::string> words =
        wordsOfFullNames(line.first(start - repeatSeparator.size()), tagger);
    std::vector<TextRange> names;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        const NameToken& token = tokens[at];
        const bool isRepeated = isWord(token) && token.letterCase != NameToken::LetterCase::lower &&
                                std::ranges::find(words, token.folded) != words.end();
        if (!isRepeated)
            continue;
        const WordTraits traits = lineWordTraits(NameLexicon::shared(), token, place);
        const bool isTold = isAlone ? !(traits & anyMeaning) || (traits & anyName) : !(traits & anyMeaning);
        if (isTold && !opensOrganisation(tokens, at) && !isOtherThanName(token.range, place, tokens))
            names.push_back({start + token.range.location, token.range.length});
    }
    return names;
}

} // namespace Veilshot
