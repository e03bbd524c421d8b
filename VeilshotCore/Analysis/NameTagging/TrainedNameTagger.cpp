#include "VeilshotCore/Analysis/NameTagging/TrainedNameTagger.h"

#include "VeilshotCore/Analysis/NameTagging/NameEvidence.h"
#include "VeilshotCore/Analysis/NameTagging/NameFeatures.h"
#include "VeilshotCore/Analysis/NameTagging/NamesInCells.h"

#include <QFile>
#include <algorithm>

namespace Veilshot {

using namespace Qt::StringLiterals;

namespace {

std::shared_ptr<const NameSegmenter> segmenterOf(const QByteArray& bytes) {
    const std::optional<NameModel> model = NameModel::fromBytes(bytes);
    return model ? std::make_shared<const NameSegmenter>(*model) : nullptr;
}

std::shared_ptr<const NameSegmenter> builtInSegmenter() {
    static const std::shared_ptr<const NameSegmenter> segmenter = [] {
        QFile file(u":/Veilshot/Analysis/NameModel.bin"_s);
        return file.open(QIODevice::ReadOnly) ? segmenterOf(file.readAll()) : nullptr;
    }();
    return segmenter;
}

/// The last word before a place in the line.
WordTraits traitsBefore(const std::vector<NameToken>& tokens, qsizetype location) {
    const auto isWordBefore = [&](const NameToken& token) {
        return token.kind == NameToken::Kind::word && token.range.end() <= location;
    };
    const auto word = std::find_if(tokens.rbegin(), tokens.rend(), isWordBefore);
    return word == tokens.rend() ? WordTraits() : NameLexicon::shared().traits(word->folded);
}

/// Whether the lists are trusted more than the model: with names of several words and with what follows a
/// title they are hardly ever wrong.
bool isCertain(TextRange listed, QStringView line, const std::vector<NameToken>& tokens) {
    return line.sliced(listed.location, listed.length).contains(u' ') ||
           traitsBefore(tokens, listed.location).testFlag(WordTrait::title);
}

/// Whether the model may be wrong about the single word: it means something else and is in no list of names
/// ("Dough is alive"), or it fills the line and means something else as well or does not look like a name
/// ("Gul", "IBAN").
bool isDoubtful(const NameToken& word, QStringView line, const std::vector<NameToken>& tokens) {
    const WordTraits traits = lineWordTraits(NameLexicon::shared(), word, line);
    const bool hasMeaning = bool(traits & anyMeaning);
    const bool isName = bool(traits & anyName);
    const bool fillsLine = tokens.size() == 1;
    const bool looksLikeName = word.letterCase == NameToken::LetterCase::title;
    return (hasMeaning && !isName) || (fillsLine && (hasMeaning || !looksLikeName));
}

std::vector<TextRange> merged(std::vector<TextRange> ranges) {
    std::ranges::sort(ranges, {}, &TextRange::location);
    std::vector<TextRange> merged;
    for (const TextRange& range : ranges) {
        if (merged.empty() || !merged.back().intersects(range))
            merged.push_back(range);
        else
            merged.back().length = std::max(merged.back().end(), range.end()) - merged.back().location;
    }
    return merged;
}

} // namespace

TrainedNameTagger::TrainedNameTagger() : m_segmenter(builtInSegmenter()) {}

TrainedNameTagger::TrainedNameTagger(const QByteArray& model) : m_segmenter(segmenterOf(model)) {}

std::vector<TextRange> TrainedNameTagger::personalNames(const QString& line) const {
    if (hasCells(line))
        return namesInCells(line, *this);
    const std::vector<TextRange> listed = m_listTagger.personalNames(line);
    if (!m_segmenter)
        return listed;
    const std::vector<NameToken> tokens = nameTokens(line);
    std::vector<TextRange> names;
    for (const TokenSpan& name :
         m_segmenter->names(nameFeatures(NameLexicon::shared(), line, tokens, listed))) {
        const qsizetype start = tokens[name.first].range.location;
        const TextRange range{start, tokens[name.last].range.end() - start};
        const bool isAgreed = std::ranges::find(listed, range) != listed.end();
        if (isAgreed || name.first != name.last || !isDoubtful(tokens[name.first], line, tokens))
            names.push_back(range);
    }
    std::ranges::copy_if(listed, std::back_inserter(names),
                         [&](TextRange range) { return isCertain(range, line, tokens); });
    return merged(std::move(names));
}

} // namespace Veilshot
