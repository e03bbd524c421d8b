#pragma once

#include <QRect>
#include <vector>

namespace Veilshot {

/// One picture to give to the face detector.
struct FaceSearchStep {
    QRect source;     ///< in pixels of the image
    double scale = 1; ///< of the picture that the detector gets
    int border = 0;   ///< pixels that repeat the edge around the scaled picture
};

/// How to look for faces in a part of the image that looks like a photograph. The detector knows faces from
/// 80 pixels, those in screenshots are far smaller: parts are enlarged, the smaller the more, and a large
/// photograph so far only that its search takes a few seconds at most. The enlarged picture is divided into
/// tiles, which bounds memory, lets all processors work on one photograph, and lets a cancelled search end
/// soon. Faces too large for a tile are left to one more step over the whole part.
std::vector<FaceSearchStep> planFaceSearch(const QRect& region);

} // namespace Veilshot
