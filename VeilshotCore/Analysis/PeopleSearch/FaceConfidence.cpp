#include "VeilshotCore/Analysis/PeopleSearch/FaceConfidence.h"

namespace Veilshot {

double faceConfidence(const FaceEvidence& evidence) {
    constexpr double largestWidth = 80;
    const double logit = 5.2 * std::min(evidence.score, 1.0) +
                         0.85 * std::min(std::log1p(evidence.frontalSupport), 3.0) +
                         0.80 * std::min(std::log1p(evidence.profileSupport), 2.5) +
                         2.0 * std::min(evidence.width, largestWidth) / largestWidth - 0.8;
    return 1 / (1 + std::exp(-logit));
}

} // namespace Veilshot
