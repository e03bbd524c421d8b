#pragma once

#include "VeilshotCore/Analysis/DataDetector.h"
#include "VeilshotCore/Analysis/NameTagger.h"
#include "VeilshotCore/Analysis/TextRecognizer.h"
#include "VeilshotCore/Detection/DetectionTask.h"

#include <QImage>
#include <memory>
#include <set>

namespace Veilshot {

/// Finds the sensitive text of a screenshot. A line that carries a label ("Name:") is sensitive as a whole;
/// every other line is searched with the rules of TextPatterns, for links, phone numbers and addresses, and
/// for the names of people.
class SensitiveTextDetector {
public:
    /// A hit within one line of text.
    struct TextMatch {
        TextRange range;
        SensitiveKind kind;

        friend bool operator==(const TextMatch&, const TextMatch&) = default;
    };

    /// What the detector asks; shared, because engines and word lists are built once per process.
    struct Analyzers {
        std::shared_ptr<const TextRecognizer> textRecognizer;
        std::shared_ptr<const DataDetector> dataDetector;
        std::shared_ptr<const NameTagger> nameTagger;

        /// The real ones.
        static Analyzers shared();
    };

    using Kinds = std::set<SensitiveKind>;
    static Kinds allKinds() { return {allSensitiveKinds.begin(), allSensitiveKinds.end()}; }

    /// Looks only for `kinds`. That is more than leaving the others out of the result: without `identity` a
    /// line with a label is searched like any other, and a wanted hit is not dropped in favour of an unwanted
    /// one.
    explicit SensitiveTextDetector(Analyzers analyzers = Analyzers::shared(), Kinds kinds = allKinds());

    /// Scans a Format_RGBA8888 bitmap of any size on a background worker. The regions are ordered by
    /// decreasing area and freed of near-duplicates; there may be none. Cancel the future to stop the worker
    /// at the next line.
    QFuture<DetectionOutcome> detect(const QImage& image) const;

    /// Every accepted match of the rule table, rule by rule, each in text order. Matches may overlap.
    static std::vector<TextMatch> matches(const QString& line);
    static std::vector<TextMatch> dataDetectorMatches(const QString& line, const DataDetector& detector);
    static std::vector<TextMatch> nameMatches(const QString& line, const NameTagger& tagger);

    /// The regions by decreasing area without those of which more than 80 % lie inside a larger kept one,
    /// whatever its kind. Of equal areas the one found first comes first.
    static SensitiveRegions removingDuplicates(SensitiveRegions regions);

private:
    Analyzers m_analyzers;
    Kinds m_kinds;
};

} // namespace Veilshot
