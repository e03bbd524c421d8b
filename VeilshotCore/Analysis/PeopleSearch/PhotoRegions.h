#pragma once

#include <QImage>
#include <QRect>
#include <vector>

namespace Veilshot {

/// The parts of a picture that look like photographs, as rectangles in pixels with a top-left origin, clipped
/// to the image. They may overlap a little. Takes a bitmap in Format_RGBA8888 and ignores its alpha: what
/// lies under a transparent pixel is in the file all the same.
///
/// A photograph differs from drawn text and surfaces in its small steps between neighbouring pixels: drawn
/// areas are exactly flat and drawn edges are steep. So a page of lossless text has no such part at all and
/// costs some milliseconds per megapixel, whereas the noise of a JPEG file makes even text look like one.
/// Extra memory is about an eighth of a byte per pixel. Pure; may be called from several threads at once.
std::vector<QRect> photoRegions(const QImage& image);

} // namespace Veilshot
