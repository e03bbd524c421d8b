#include "VeilshotCore/Analysis/NameTagging/TrainedNameTagger.h"

#include "VeilshotCore/Analysis/NameTagging/NameEvidence.h"
#include "VeilshotCore/Analysis/NameTagging/NameFeatures.h"

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

/// Whether the line is a single word that does not look like a name or means something else as well: "Gul" is
/// rather the colour.
bool isDoubtfulWord(const std::vector<NameToken>& tokens, QStringView line) {
    return tokens.size() == 1 && (tokens.front().letterCase != NameToken::LetterCase::title ||
                                  (lineWordTraits(NameLexicon::shared(), tokens.front(), line) & anyMeaning));
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
    const std::vector<TextRange> listed = m_listTagger.personalNames(line);
    if (!m_segmenter)
        return listed;
    const std::vector<NameToken> tokens = nameTokens(line);
    if (isDoubtfulWord(tokens, line))
        return listed;
    std::vector<TextRange> names;
    for (const TokenSpan& name :
         m_segmenter->names(nameFeatures(NameLexicon::shared(), line, tokens, listed))) {
        const qsizetype start = tokens[name.first].range.location;
        names.push_back({start, tokens[name.last].range.end() - start});
    }
    std::ranges::copy_if(listed, std::back_inserter(names),
                         [&](TextRange range) { return isCertain(range, line, tokens); });
    return merged(std::move(names));
}

} // namespace Veilshot
