#pragma once

#include <QRectF>
#include <vector>

namespace Veilshot {

/// Something that the face detector took for a face.
struct FaceCandidate {
    QRectF box;       ///< brow to chin; in pixels with a top-left origin
    double score = 0; ///< the detector's own measure: negative is weak, above 1 is beyond doubt

    friend bool operator==(const FaceCandidate&, const FaceCandidate&) = default;
};

/// True when the two boxes stand on the same face: much in common, or one mostly inside the other.
bool coverSameFace(const QRectF& a, const QRectF& b);

/// The best candidate of each face, strongest first. The order of the input does not matter.
std::vector<FaceCandidate> distinctFaces(std::vector<FaceCandidate> candidates);

} // namespace Veilshot
