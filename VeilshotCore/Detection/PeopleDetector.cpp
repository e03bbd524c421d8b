#include "VeilshotCore/Detection/PeopleDetector.h"

#include "VeilshotCore/Analysis/PeopleSearch/HogPeopleAnalyzer.h"

#include <algorithm>

namespace Veilshot {

namespace {

/// A face of which at least this share lies inside one body is hidden with it.
constexpr double coverageThreshold = 0.75;

SensitiveRegion personRegion(const NormalizedRect& box, double horizontalMargin, double verticalMargin) {
    return {QUuid::createUuid(),
            box.enlarged(horizontalMargin, verticalMargin).intersected(NormalizedRect::unit()),
            SensitiveKind::person};
}

bool isCovered(const NormalizedRect& face, const std::vector<NormalizedRect>& people) {
    if (!(face.area() > 0))
        return false;
    return std::ranges::any_of(people, [&](const NormalizedRect& body) {
        return face.intersected(body).area() / face.area() >= coverageThreshold;
    });
}

std::shared_ptr<const PeopleAnalyzer> sharedAnalyzer() {
    // Never destroyed: at the end of the process the libraries behind it may be gone before it.
    static const auto& analyzer =
        *new std::shared_ptr<const PeopleAnalyzer>(std::make_shared<HogPeopleAnalyzer>());
    return analyzer;
}

std::vector<NormalizedRect> confidentBoxes(const std::vector<PersonObservation>& observations) {
    std::vector<NormalizedRect> boxes;
    for (const PersonObservation& observation : observations) {
        if (observation.confidence >= PeopleDetector::minimumConfidence)
            boxes.push_back(observation.boundingBox);
    }
    return boxes;
}

} // namespace

PeopleDetector::PeopleDetector() : PeopleDetector(sharedAnalyzer()) {}

PeopleDetector::PeopleDetector(std::shared_ptr<const PeopleAnalyzer> analyzer)
    : m_analyzer(std::move(analyzer)) {}

QFuture<DetectionOutcome> PeopleDetector::detect(const QImage& image) const {
    return startDetection(
        [image, analyzer = m_analyzer](const CancellationCheck& isCancelled) -> DetectionOutcome {
            const auto observed = analyzer->analyze(image, isCancelled);
            if (const auto* error = std::get_if<AnalysisError>(&observed))
                return *error;
            const auto& observations = std::get<PeopleObservations>(observed);
            return regions(confidentBoxes(observations.bodies), confidentBoxes(observations.faces));
        });
}

SensitiveRegions PeopleDetector::regions(const std::vector<NormalizedRect>& people,
                                         const std::vector<NormalizedRect>& faces) {
    SensitiveRegions regions;
    for (const NormalizedRect& body : people)
        regions.push_back(personRegion(body, 0.025, 0.02));
    for (const NormalizedRect& face : faces) {
        if (!isCovered(face, people))
            regions.push_back(personRegion(face, 0.035, 0.045));
    }
    return regions;
}

} // namespace Veilshot
