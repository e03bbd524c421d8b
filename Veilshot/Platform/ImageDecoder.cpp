#include "Veilshot/Platform/ImageDecoder.h"

#include "Veilshot/Platform/DecodingFailure.h"
#include "Veilshot/Platform/HeifReader.h"
#include "Veilshot/Platform/PluginReader.h"
#include "Veilshot/Platform/PngReader.h"
#include "Veilshot/Platform/RegularFile.h"

#include <QColorSpace>
#include <QImageReader>
#include <QLoggingCategory>
#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <tiffio.h>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// 96 dots per inch, what Qt gives a new image; a QImage cannot be without a resolution.
constexpr int dotsPerMeter = 3780;

void prepareImageLibraries() {
    // A caller prints the one line that matters; the libraries' own remarks would stand around it.
    // libpng, which writes to the standard error of its own accord, is not used through Qt for that reason.
    QLoggingCategory::setFilterRules(u"qt.gui.imageio*=false\nqt.gui.icc=false"_s);
    TIFFSetErrorHandler(nullptr);
    TIFFSetWarningHandler(nullptr);
    // In binary megabytes, at four bytes a pixel. It bounds those readers that cannot tell the size first.
    QImageReader::setAllocationLimit(ImageDecoder::maximumMegapixels * 4);
}

ImageError error(const QString& name, const QString& reason) {
    QString printable = name;
    for (QChar& character : printable) {
        if (character.category() == QChar::Other_Control)
            character = u'?'; // a line break in a file's name must not break the message in two
    }
    return {printable + u": "_s + reason};
}

bool hidesColor(const quint32* pixels, int count) {
    constexpr quint32 alpha = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? 0xff000000 : 0x000000ff;
    quint32 found = 0;
    for (int i = 0; i < count; ++i)
        found |= quint32((pixels[i] & alpha) == 0) & quint32(pixels[i] != 0);
    return found != 0;
}

/// Pixels that nobody sees carry no colour: below a transparent picture of a text the text itself would go
/// on. Most images with an alpha channel have none, and keep sharing their pixels.
void clearInvisible(QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        if (!hidesColor(reinterpret_cast<const quint32*>(image.constScanLine(y)), image.width()))
            continue;
        uchar* pixel = image.scanLine(y);
        for (int x = 0; x < image.width(); ++x, pixel += 4) {
            if (pixel[3] == 0)
                pixel[0] = pixel[1] = pixel[2] = 0;
        }
    }
}

ReaderOutcome read(const QByteArray& bytes) {
    static const bool isPrepared = (prepareImageLibraries(), true);
    Q_UNUSED(isPrepared)
    if (isPng(bytes))
        return readPng(bytes);
    if (isHeif(bytes))
        return readHeif(bytes);
    return readWithPlugins(bytes);
}

QImage withoutTexts(const QImage& image) {
    // A text cannot be taken away from a QImage, and every kind of copy Qt offers keeps them.
    QImage fresh(image.size(), image.format());
    if (fresh.isNull())
        return fresh;
    const auto bytesPerRow = size_t(image.width()) * 4;
    for (int row = 0; row < image.height(); ++row)
        std::memcpy(fresh.scanLine(row), image.constScanLine(row), bytesPerRow);
    return fresh;
}

} // namespace

DecodedImage ImageDecoder::decodeFile(const QString& path) try {
    const auto bytes = readRegularFile(path, maximumFileSize);
    if (const QString* reason = std::get_if<QString>(&bytes))
        return error(path, *reason);
    return decodeBytes(std::get<QByteArray>(bytes), path);
} catch (const std::bad_alloc&) {
    return error(path, DecodingFailure{DecodingFailure::Reason::outOfMemory}.message());
}

DecodedImage ImageDecoder::decodeBytes(const QByteArray& bytes, const QString& name) try {
    if (bytes.size() > maximumFileSize)
        return error(name, u"this is more than 1 gigabyte of data"_s);
    ReaderOutcome outcome = read(bytes);
    if (const DecodingFailure* failure = std::get_if<DecodingFailure>(&outcome))
        return error(name, failure->message());
    QImage bitmap = toBitmap(std::move(std::get<QImage>(outcome)));
    if (bitmap.isNull())
        throw std::bad_alloc();
    return bitmap;
} catch (const std::bad_alloc&) {
    return error(name, DecodingFailure{DecodingFailure::Reason::outOfMemory}.message());
}

bool ImageDecoder::isPictureType(const QString& mimeType) {
    constexpr std::array drawings{"svg"_L1, "eps"_L1, "emf"_L1, "wmf"_L1};
    return mimeType.startsWith("image/"_L1) && std::ranges::none_of(drawings, [&](QLatin1StringView drawing) {
               return mimeType.contains(drawing);
           });
}

QImage ImageDecoder::toBitmap(QImage image) {
    if (image.isNull())
        return image;
    const bool hasAlpha = image.hasAlphaChannel();
    image.convertTo(QImage::Format_RGBA8888);
    if (hasAlpha)
        clearInvisible(image);
    const QColorSpace colorSpace = image.colorSpace();
    if (colorSpace.isValid()) {
        if (colorSpace != QColorSpace(QColorSpace::SRgb))
            image.convertToColorSpace(QColorSpace::SRgb);
        image.setColorSpace({});
    }
    if (!image.textKeys().isEmpty())
        image = withoutTexts(image);
    if (image.devicePixelRatio() != 1)
        image.setDevicePixelRatio(1);
    if (!image.offset().isNull())
        image.setOffset({});
    if (image.dotsPerMeterX() != dotsPerMeter || image.dotsPerMeterY() != dotsPerMeter) {
        image.setDotsPerMeterX(dotsPerMeter);
        image.setDotsPerMeterY(dotsPerMeter);
    }
    return image;
}

} // namespace Veilshot
