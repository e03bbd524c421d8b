#pragma once

#include "VeilshotCore/Models/SensitiveRegion.h"
#include "VeilshotCore/Rendering/RedactionStyle.h"

#include <QImage>

namespace Veilshot {

/// Makes the copy of a screenshot in which every region is hidden.
///
/// Images are in Format_RGBA8888: straight alpha, sRGB, device pixel ratio 1. Another format is converted
/// first, which costs a copy per call.
class ScreenshotRedactor {
public:
    /// The same picture, pixel for pixel the same size. A pixel touched by a region (see
    /// NormalizedRect::toCoveredPixels) shows the effect, every other one is the source's, bit for bit.
    /// Each effect sees the whole source, edges repeated without end, and is then cut out by the regions:
    /// overlapping ones hide their common area once.
    ///
    /// `intensity` is in pixels of the image:
    ///  - smooth: the standard deviation of a Gaussian blur (see paintGaussianBlur for its accuracy);
    ///    zero, a negative value or "not a number" leaves the regions as they are.
    ///  - pixelate: the side of the square cells, at least 6 (see paintPixelation for the exact colours).
    ///  - blackout: not used. The result is opaque black.
    /// It is never limited to the image's or the region's size.
    ///
    /// Without regions the very same image comes back. A null image means that there was no source, or not
    /// enough memory.
    ///
    /// Runs in the calling thread and waits for no other; any thread may call it. The source's pixels must
    /// not change behind the back of QImage::cacheKey() between two renders of it: a result takes
    /// over what lies outside the regions, and a blur what was averaged, from an earlier one of the same
    /// source. The result is an ordinary
    /// image: to write to it makes a copy of it.
    QImage render(const QImage& image, const SensitiveRegions& regions, RedactionStyle style,
                  double intensity) const;

    /// The renderer keeps the memory of up to two pictures for the next render of the same size, and
    /// averages of the last source that was blurred, up to a quarter of a picture. This gives all of it back,
    /// for example once the picture is closed.
    static void releaseMemory();
};

} // namespace Veilshot
