#include "VeilshotCore/Detection/SensitiveTextDetector.h"

#include "VeilshotCore/Analysis/DataDetection/StandardDataDetector.h"
#include "VeilshotCore/Analysis/NameTagging/TrainedNameTagger.h"
#include "VeilshotCore/Analysis/RepeatedWordLine.h"
#include "VeilshotCore/Analysis/TextRecognition/TesseractTextRecognizer.h"
#include "VeilshotCore/Detection/TextPatterns.h"

#include <algorithm>
#include <iterator>

namespace Veilshot {

namespace {

/// Recognized boxes hug the ink; a little around them hides the ends of letters and the blur's edge too.
constexpr double horizontalMargin = 0.006;
constexpr double verticalMargin = 0.008;

constexpr double duplicateShare = 0.8;

SensitiveRegion enlargedRegion(const NormalizedRect& box, SensitiveKind kind) {
    return {QUuid::createUuid(),
            box.enlarged(horizontalMargin, verticalMargin).intersected(NormalizedRect::unit()), kind};
}

/// A range that splits a surrogate pair does not map to characters.
bool fallsOnCharacters(const QString& line, TextRange range) {
    const auto splitsPair = [&](qsizetype offset) {
        return offset > 0 && offset < line.size() && line[offset].isLowSurrogate() &&
               line[offset - 1].isHighSurrogate();
    };
    return range.location >= 0 && range.length >= 0 && range.end() <= line.size() &&
           !splitsPair(range.location) && !splitsPair(range.end());
}

std::vector<SensitiveTextDetector::TextMatch> allMatches(const QString& text,
                                                         const SensitiveTextDetector::Analyzers& analyzers) {
    using Detector = SensitiveTextDetector;
    if (hasRepeatedWords(text))
        return Detector::nameMatches(text, *analyzers.nameTagger);
    std::vector<Detector::TextMatch> matches = Detector::matches(text);
    std::ranges::copy(Detector::dataDetectorMatches(text, *analyzers.dataDetector),
                      std::back_inserter(matches));
    std::ranges::copy(Detector::nameMatches(text, *analyzers.nameTagger), std::back_inserter(matches));
    return matches;
}

void appendRegions(SensitiveRegions& regions, const RecognizedLine& line,
                   const std::vector<SensitiveTextDetector::TextMatch>& matches,
                   const SensitiveTextDetector::Kinds& kinds) {
    for (const auto& match : matches) {
        if (!kinds.contains(match.kind) || !fallsOnCharacters(line.text(), match.range))
            continue;
        if (const auto box = line.boundingBox(match.range))
            regions.push_back(enlargedRegion(*box, match.kind));
    }
}

DetectionOutcome detectSensitiveText(const QImage& image, const SensitiveTextDetector::Analyzers& analyzers,
                                     const SensitiveTextDetector::Kinds& kinds,
                                     const CancellationCheck& isCancelled) {
    using Detector = SensitiveTextDetector;
    auto recognized = analyzers.textRecognizer->recognize(image, isCancelled);
    if (const auto* error = std::get_if<AnalysisError>(&recognized))
        return *error;
    SensitiveRegions regions;
    QString searched;
    std::vector<Detector::TextMatch> matches;
    for (const RecognizedLine& line : std::get<std::vector<RecognizedLine>>(recognized)) {
        if (isCancelled())
            return SensitiveRegions();
        const QString& text = line.text();
        if (kinds.contains(SensitiveKind::identity) && !hasRepeatedWords(text) &&
            TextPatterns::labeledLine().hasMatch(text)) {
            regions.push_back(enlargedRegion(line.boundingBox(), SensitiveKind::identity));
            continue;
        }
        // Segments that are read on together come once for the boxes of each.
        if (text != searched)
            matches = allMatches(text, analyzers);
        searched = text;
        appendRegions(regions, line, matches, kinds);
    }
    return Detector::removingDuplicates(std::move(regions));
}

SensitiveKind kindOf(const DataMatch& match) {
    switch (match.type) {
    case DataMatch::Type::address:
        return SensitiveKind::address;
    case DataMatch::Type::phoneNumber:
        return SensitiveKind::phone;
    case DataMatch::Type::link:
        break;
    }
    return match.url.startsWith(u"mailto:") ? SensitiveKind::email : SensitiveKind::web;
}

} // namespace

SensitiveTextDetector::Analyzers SensitiveTextDetector::Analyzers::shared() {
    // Never destroyed: at the end of the process the libraries behind them may be gone before them.
    static const Analyzers& analyzers =
        *new Analyzers{std::make_shared<TesseractTextRecognizer>(), std::make_shared<StandardDataDetector>(),
                       std::make_shared<TrainedNameTagger>()};
    return analyzers;
}

SensitiveTextDetector::SensitiveTextDetector(Analyzers analyzers, Kinds kinds)
    : m_analyzers(std::move(analyzers)), m_kinds(std::move(kinds)) {}

QFuture<DetectionOutcome> SensitiveTextDetector::detect(const QImage& image) const {
    return startDetection(
        [image, analyzers = m_analyzers, kinds = m_kinds](const CancellationCheck& isCancelled) {
            return detectSensitiveText(image, analyzers, kinds, isCancelled);
        });
}

std::vector<SensitiveTextDetector::TextMatch> SensitiveTextDetector::matches(const QString& line) {
    std::vector<TextMatch> matches;
    for (const TextPatterns::Rule& rule : TextPatterns::rules()) {
        for (const TextRange range : rule.expression.ranges(line)) {
            if (fallsOnCharacters(line, range) &&
                rule.validator(QStringView(line).mid(range.location, range.length)))
                matches.push_back({range, rule.kind});
        }
    }
    return matches;
}

std::vector<SensitiveTextDetector::TextMatch>
SensitiveTextDetector::dataDetectorMatches(const QString& line, const DataDetector& detector) {
    std::vector<TextMatch> matches;
    for (const DataMatch& match : detector.matches(line))
        matches.push_back({match.range, kindOf(match)});
    return matches;
}

std::vector<SensitiveTextDetector::TextMatch> SensitiveTextDetector::nameMatches(const QString& line,
                                                                                 const NameTagger& tagger) {
    std::vector<TextMatch> matches;
    for (const TextRange range : tagger.personalNames(line))
        matches.push_back({range, SensitiveKind::name});
    return matches;
}

SensitiveRegions SensitiveTextDetector::removingDuplicates(SensitiveRegions regions) {
    std::ranges::stable_sort(regions, std::greater(),
                             [](const SensitiveRegion& region) { return region.normalizedRect().area(); });
    SensitiveRegions kept;
    for (const SensitiveRegion& region : regions) {
        const NormalizedRect& rect = region.normalizedRect();
        const bool isDuplicate = std::ranges::any_of(kept, [&](const SensitiveRegion& larger) {
            const double common = rect.intersected(larger.normalizedRect()).area();
            return common > 0 &&
                   common / std::min(rect.area(), larger.normalizedRect().area()) > duplicateShare;
        });
        if (!isDuplicate)
            kept.push_back(region);
    }
    return kept;
}

} // namespace Veilshot
