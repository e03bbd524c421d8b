#include "VeilshotCore/Analysis/NameTagging/TrainedNameTagger.h"

#include "VeilshotCore/Analysis/NameTagging/JoinedNames.h"
#include "VeilshotCore/Analysis/NameTagging/NameDoubts.h"
#include "VeilshotCore/Analysis/NameTagging/NameEvidence.h"
#include "VeilshotCore/Analysis/NameTagging/NameFeatures.h"
#include "VeilshotCore/Analysis/NameTagging/NamePatterns.h"
#include "VeilshotCore/Analysis/NameTagging/NameSections.h"
#include "VeilshotCore/Analysis/NameTagging/NamesInCells.h"
#include "VeilshotCore/Analysis/NameTagging/NamesInCode.h"
#include "VeilshotCore/Analysis/NameTagging/NamesInSentences.h"
#include "VeilshotCore/Analysis/NameTagging/RepeatedNames.h"
#include "VeilshotCore/Analysis/NameTagging/UnmistakableNames.h"
#include "VeilshotCore/Analysis/RepeatedWordLine.h"
#include "VeilshotCore/Analysis/RewrittenLine.h"

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

/// Whether a word of the range is in the lists, or no other word is in the line.
bool isListedOrAlone(TextRange range, QStringView line, const std::vector<NameToken>& tokens) {
    const auto isWord = [](const NameToken& token) { return token.kind == NameToken::Kind::word; };
    const auto isListed = [&](const NameToken& token) {
        return isWord(token) && token.range.intersects(range) &&
               (lineWordTraits(NameLexicon::shared(), token, line) & anyName);
    };
    return std::ranges::any_of(tokens, isListed) || std::ranges::all_of(tokens, [&](const NameToken& token) {
               return !isWord(token) || token.range.intersects(range);
           });
}

/// "From: Tjorven Uhlenbrock", "author = Tjorven Uhlenbrock".
bool isLabelled(TextRange range, QStringView line, const std::vector<NameToken>& tokens) {
    const QStringView before = line.first(range.location).trimmed();
    return (before.endsWith(u':') || before.endsWith(u'=')) &&
           traitsBefore(tokens, range.location).testFlag(WordTrait::label);
}

/// Whether the lists are trusted more than the model: with names of several words and with what follows a
/// title they are hardly ever wrong.
bool isCertain(TextRange listed, QStringView line, const std::vector<NameToken>& tokens) {
    return (line.sliced(listed.location, listed.length).contains(u' ') &&
            (isListedOrAlone(listed, line, tokens) || isLabelled(listed, line, tokens))) ||
           traitsBefore(tokens, listed.location).testFlag(WordTrait::title);
}

/// Where a blank is missing between a first and a last name that recognition ran together: "LeonieSenger". At
/// least one half is such a name and means nothing else; "JavaScript" and "McDonald" stay whole.
std::vector<qsizetype> lostBlanks(QStringView line) {
    constexpr qsizetype shortest = 3;
    const NameLexicon& lexicon = NameLexicon::shared();
    std::vector<qsizetype> lost;
    for (const NameToken& token : nameTokens(line)) {
        const QStringView word = line.sliced(token.range.location, token.range.length);
        const QChar before = token.range.location > 0 ? line[token.range.location - 1] : QChar(u' ');
        if (token.letterCase != NameToken::LetterCase::mixed || !word.front().isUpper() || token.hasDigits ||
            QStringView(u"@#_./").contains(before))
            continue;
        const auto isHump = [&](qsizetype at) { return word[at].isUpper() && word[at - 1].isLower(); };
        qsizetype hump = 1;
        while (hump < word.size() && !isHump(hump))
            ++hump;
        if (hump < shortest || word.size() - hump < shortest)
            continue;
        const WordTraits first = lexicon.traits(foldedName(word.first(hump)));
        const WordTraits last = lexicon.traits(foldedName(word.sliced(hump)));
        const bool hasName = ((first & anyFirstName) && !(first & anyMeaning)) ||
                             ((last & anyLastName) && !(last & anyMeaning));
        const bool hasWord =
            ((first & anyMeaning) && !(first & anyName)) || ((last & anyMeaning) && !(last & anyName));
        if (hasName && !hasWord)
            lost.push_back(token.range.location + hump);
    }
    return lost;
}

/// Whether there are no letters beside the name.
bool fillsSection(TextRange name, QStringView section) {
    const auto isLetter = [](QChar c) { return c.isLetter(); };
    return section.sliced(name.location, name.length).contains(u' ') &&
           std::ranges::none_of(section.first(name.location), isLetter) &&
           std::ranges::none_of(section.sliced(name.end()), isLetter);
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
    if (hasRepeatedWords(line))
        return repeatedNames(line, *this);
    if (hasCells(line))
        return namesInCells(line, *this);
    std::vector<TextRange> names = namesInWhole(line);
    for (const TextRange section : nameSections(line)) {
        const QString text = line.sliced(section.location, section.length);
        for (const TextRange name : namesInWhole(text)) {
            if (fillsSection(name, text))
                names.push_back({section.location + name.location, name.length});
        }
    }
    return merged(std::move(names));
}

std::vector<TextRange> TrainedNameTagger::namesInWhole(const QString& line) const {
    std::vector<RewrittenLine::Edit> edits;
    for (const qsizetype blank : lostBlanks(line))
        edits.push_back({{blank, 0}, u" "_s});
    if (edits.empty())
        return namesAsWritten(line);
    const RewrittenLine spaced(line, std::move(edits));
    std::vector<TextRange> names = namesAsWritten(spaced.text());
    for (TextRange& name : names)
        name = spaced.original(name);
    return merged(std::move(names));
}

std::vector<TextRange> TrainedNameTagger::namesAsWritten(const QString& text) const {
    const NameLexicon& lexicon = NameLexicon::shared();
    const std::vector<TextRange> listed = m_listTagger.personalNames(text);
    if (!m_segmenter)
        return listed;
    std::vector<TextRange> names;
    const auto append = [&](const std::vector<TextRange>& more) {
        names.insert(names.end(), more.begin(), more.end());
    };
    const std::vector<NameToken> tokens = nameTokens(text);
    for (const TokenSpan& name : m_segmenter->names(nameFeatures(lexicon, text, tokens, listed))) {
        const qsizetype start = tokens[name.first].range.location;
        const TextRange range{start, tokens[name.last].range.end() - start};
        const bool isAgreed = std::ranges::find(listed, range) != listed.end();
        if (isAgreed || !isDoubtfulName(range, text, tokens))
            names.push_back(range);
    }
    std::ranges::copy_if(listed, std::back_inserter(names),
                         [&](TextRange range) { return isCertain(range, text, tokens); });
    const NameLine line(lexicon, text);
    append(namesByPattern(line));
    append(namesInSentences(lexicon, line));
    append(namesInCode(text));
    append(unmistakableNames(line));
    std::erase_if(names, [&](TextRange name) { return isOtherThanName(name, text, tokens); });
    names = merged(std::move(names));
    append(namesJoinedTo(names, line));
    return merged(std::move(names));
}

} // namespace Veilshot
