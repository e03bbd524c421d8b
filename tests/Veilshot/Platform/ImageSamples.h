#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QSize>
#include <vector>

/// Pictures and image files for the tests, good, odd and broken.
namespace Veilshot::ImageSamples {

/// Red and green above blue and white, each a quarter of the area.
QImage quadrants(QSize size = {48, 32});
/// Of one colour, in the one bitmap format.
QImage filled(QColor color, QSize size);
/// No two neighbouring rows alike, so that a part that is missing shows.
QImage gradient(QSize size);
/// The image as Qt writes it: "png", "jpeg" …
QByteArray encoded(const QImage& image, const char* format, int quality = 100);
/// The JPEG file with an EXIF orientation (1 to 8) put into it.
QByteArray withExifOrientation(const QByteArray& jpeg, int orientation);

struct PngChunk {
    QByteArray type;
    QByteArray data;
};
/// A PNG file of these chunks, with right checksums.
QByteArray png(const std::vector<PngChunk>& chunks);
/// The header of an 8-bit PNG file with red, green and blue.
PngChunk pngHeader(quint32 width, quint32 height);
/// The chunks of a PNG file, in order.
std::vector<PngChunk> pngChunks(const QByteArray& png);

/// The colours in the middle of the four quarters: top left, top right, bottom left, bottom right.
std::vector<QColor> quarterColors(const QImage& image);
/// The largest difference of any channel between two lists of equal length.
int largestDifference(const std::vector<QColor>& left, const std::vector<QColor>& right);

} // namespace Veilshot::ImageSamples
