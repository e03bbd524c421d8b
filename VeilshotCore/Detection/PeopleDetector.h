#pragma once

#include "VeilshotCore/Analysis/PeopleAnalyzer.h"
#include "VeilshotCore/Detection/DetectionTask.h"

#include <QImage>
#include <memory>

namespace Veilshot {

/// Finds people in a screenshot: whole bodies, and the faces that no body covers.
class PeopleDetector {
public:
    /// With the real analyzer, shared by the process.
    PeopleDetector();
    explicit PeopleDetector(std::shared_ptr<const PeopleAnalyzer> analyzer);

    /// Scans a Format_RGBA8888 bitmap of any size on a background worker. All bodies come first, then the
    /// uncovered faces, each in detection order; there may be none. Cancel the future to stop the worker.
    QFuture<DetectionOutcome> detect(const QImage& image) const;

    /// Observations at least this confident count, in single precision as they are reported.
    static constexpr float minimumConfidence = 0.3f;

    /// The regions for bodies and faces that are confident enough.
    static SensitiveRegions regions(const std::vector<NormalizedRect>& people,
                                    const std::vector<NormalizedRect>& faces);

private:
    std::shared_ptr<const PeopleAnalyzer> m_analyzer;
};

} // namespace Veilshot
