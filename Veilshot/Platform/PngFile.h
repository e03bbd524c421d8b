#pragma once

#include <QByteArray>
#include <QImage>

namespace Veilshot::PngFile {

/// The pixels as a PNG file and nothing but the pixels: no text, time, resolution, EXIF data or colour
/// profile, whatever the image carries. Decodes to exactly the pixels of `image` in the bitmap format; an
/// image without transparency is written without an alpha channel. Empty for a null image or if memory runs
/// out. May be called from any thread.
QByteArray encodePng(const QImage& image);

} // namespace Veilshot::PngFile
