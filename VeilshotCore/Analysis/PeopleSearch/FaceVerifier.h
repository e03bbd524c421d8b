#pragma once

#include "VeilshotCore/Analysis/AnalysisOutcome.h"

#include <QImage>
#include <QRectF>
#include <memory>

namespace Veilshot {

/// How many neighbouring hits of a cascade support a candidate.
struct FaceSupport {
    int frontal = 0;
    int profile = 0; ///< the better of the two sides
};

/// A second opinion on one face candidate, by OpenCV's cascades for frontal faces and profiles. Used for weak
/// candidates only: to scan a whole photograph with cascades costs more than it finds.
/// Serves one thread at a time.
class FaceVerifier {
public:
    /// Loads the cascades from the folder. The error names the Debian package that brings them.
    static AnalysisOutcome<std::unique_ptr<FaceVerifier>> create(const QString& cascadeFolder);
    ~FaceVerifier();

    /// `box` is in pixels of the bitmap (Format_RGBA8888) with a top-left origin. Throws cv::Exception.
    FaceSupport support(const QImage& image, const QRectF& box);

private:
    struct Cascades;
    explicit FaceVerifier(std::unique_ptr<Cascades> cascades);

    std::unique_ptr<Cascades> m_cascades;
};

} // namespace Veilshot
