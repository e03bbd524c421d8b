#pragma once

#include "VeilshotCore/Analysis/AnalysisOutcome.h"
#include "VeilshotCore/Models/NormalizedRect.h"

#include <QImage>
#include <vector>

namespace Veilshot {

/// A body or a face that an analyzer believes to have seen.
struct PersonObservation {
    float confidence = 0; ///< 0…1
    NormalizedRect boundingBox;

    friend bool operator==(const PersonObservation&, const PersonObservation&) = default;
};

/// What an analyzer saw in one image, each list in detection order and not filtered by confidence.
struct PeopleObservations {
    std::vector<PersonObservation> bodies;
    std::vector<PersonObservation> faces;
};

/// Looks for whole bodies and for faces in a picture.
class PeopleAnalyzer {
public:
    virtual ~PeopleAnalyzer() = default;

    /// Takes a bitmap of any size in Format_RGBA8888. Blocks until done, for seconds on a large photograph;
    /// never call it on the main thread. May be called from several threads at once.
    virtual AnalysisOutcome<PeopleObservations> analyze(const QImage& image,
                                                        const CancellationCheck& isCancelled) const = 0;
};

} // namespace Veilshot
