#include "Veilshot/Platform/PngFile.h"

#include "Veilshot/Platform/ImageDecoder.h"

#include <QBuffer>
#include <QImageWriter>
#include <QtEndian>
#include <array>
#include <cstring>
#include <new>

namespace Veilshot {

namespace {

/// zlib's fastest level but one: on screenshots half the time of Qt's default for files as small.
constexpr int quality = 80;

bool isOpaque(const QImage& bitmap) {
    for (int row = 0; row < bitmap.height(); ++row) {
        const auto* pixels = reinterpret_cast<const quint32*>(bitmap.constScanLine(row));
        quint32 common = ~quint32(0);
        for (int column = 0; column < bitmap.width(); ++column)
            common &= pixels[column];
        std::array<uchar, 4> channels;
        std::memcpy(channels.data(), &common, channels.size());
        if (channels[3] != 0xff)
            return false;
    }
    return true;
}

/// The file with only those chunks that make the pixels. Qt writes a resolution into every file, so a fresh
/// image alone would not do.
QByteArray onlyPixels(const QByteArray& png) {
    constexpr qsizetype signatureSize = 8;
    constexpr qsizetype aroundData = 12; // length, type and checksum
    QByteArray result;
    result.reserve(png.size());
    result.append(png.first(signatureSize));
    for (qsizetype at = signatureSize; at + aroundData <= png.size();) {
        const auto length = qsizetype(qFromBigEndian<quint32>(png.constData() + at)) + aroundData;
        const QByteArrayView type(png.constData() + at + 4, 4);
        if (type == "IHDR" || type == "PLTE" || type == "tRNS" || type == "IDAT" || type == "IEND")
            result.append(png.sliced(at, length));
        at += length;
    }
    return result;
}

} // namespace

QByteArray PngFile::encodePng(const QImage& image) try {
    const QImage bitmap = ImageDecoder::toBitmap(image);
    if (bitmap.isNull())
        return {};
    // The same pixels seen as a format whose fourth byte means nothing, which Qt writes as three.
    const QImage written = isOpaque(bitmap) ? QImage(bitmap.constBits(), bitmap.width(), bitmap.height(),
                                                     bitmap.bytesPerLine(), QImage::Format_RGBX8888)
                                            : bitmap;
    QBuffer buffer;
    QImageWriter writer(&buffer, "png");
    writer.setQuality(quality);
    if (!writer.write(written))
        return {};
    return onlyPixels(buffer.data());
} catch (const std::bad_alloc&) {
    return {};
}

} // namespace Veilshot
