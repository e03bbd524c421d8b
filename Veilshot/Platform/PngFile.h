#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <optional>

namespace Veilshot::PngFile {

/// The pixels as a PNG file and nothing but the pixels: no text, time, resolution, EXIF data or colour
/// profile, whatever the image carries. Decodes to exactly the pixels of `image` in the bitmap format; an
/// image without transparency is written without an alpha channel. Empty for a null image or if memory runs
/// out. May be called from any thread.
QByteArray encodePng(const QImage& image);

/// Writes the file in one step: it is complete under `path`, or whatever stood there before is untouched and
/// nothing is left beside it. Follows symbolic links; replaces only regular files. Returns nothing, or why it
/// failed in a sentence that begins with the path.
std::optional<QString> writeAtomically(const QString& path, const QByteArray& bytes);

} // namespace Veilshot::PngFile
