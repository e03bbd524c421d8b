#include "tests/Veilshot/Platform/ImageSamples.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>
#include <QtEndian>
#include <algorithm>

namespace Veilshot {

namespace {

template<typename Number>
QByteArray bigEndian(Number number) {
    QByteArray bytes(sizeof(Number), Qt::Uninitialized);
    qToBigEndian(number, bytes.data());
    return bytes;
}

quint32 checksum(const QByteArray& bytes) {
    quint32 remainder = 0xffffffff;
    for (const char byte : bytes) {
        remainder ^= uchar(byte);
        for (int bit = 0; bit < 8; ++bit)
            remainder = remainder >> 1 ^ (remainder & 1 ? 0xedb88320 : 0);
    }
    return ~remainder;
}

const QByteArray pngSignature = "\x89PNG\r\n\x1a\n";

} // namespace

QImage ImageSamples::quadrants(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    const int middleX = size.width() / 2;
    const int middleY = size.height() / 2;
    QPainter painter(&image);
    painter.fillRect(0, 0, middleX, middleY, QColor(255, 0, 0));
    painter.fillRect(middleX, 0, size.width(), middleY, QColor(0, 255, 0));
    painter.fillRect(0, middleY, middleX, size.height(), QColor(0, 0, 255));
    painter.fillRect(middleX, middleY, size.width(), size.height(), QColor(255, 255, 255));
    return image;
}

QImage ImageSamples::filled(QColor color, QSize size) {
    QImage image(size, QImage::Format_RGBA8888);
    image.fill(color);
    return image;
}

QImage ImageSamples::gradient(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgb(x * 7 + y * 13, x * 3 ^ y * 29, y * 31 + x));
    }
    return image;
}

QByteArray ImageSamples::encoded(const QImage& image, const char* format, int quality) {
    QBuffer buffer;
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    return writer.write(image) ? buffer.data() : QByteArray();
}

QByteArray ImageSamples::withExifOrientation(const QByteArray& jpeg, int orientation) {
    const QByteArray exif = QByteArray("Exif\0\0MM\0*\0\0\0\x08", 14) + bigEndian(quint16(1)) +
                            bigEndian(quint16(0x0112)) + bigEndian(quint16(3)) + bigEndian(quint32(1)) +
                            bigEndian(quint16(orientation)) + bigEndian(quint16(0)) + bigEndian(quint32(0));
    QByteArray result = jpeg;
    return result.insert(2, "\xff\xe1" + bigEndian(quint16(exif.size() + 2)) + exif);
}

QByteArray ImageSamples::png(const std::vector<PngChunk>& chunks) {
    QByteArray file = pngSignature;
    for (const PngChunk& chunk : chunks)
        file += bigEndian(quint32(chunk.data.size())) + chunk.type + chunk.data +
                bigEndian(checksum(chunk.type + chunk.data));
    return file;
}

ImageSamples::PngChunk ImageSamples::pngHeader(quint32 width, quint32 height) {
    return {"IHDR", bigEndian(width) + bigEndian(height) + QByteArray("\x08\x02\0\0\0", 5)};
}

std::vector<ImageSamples::PngChunk> ImageSamples::pngChunks(const QByteArray& png) {
    std::vector<PngChunk> chunks;
    for (qsizetype at = pngSignature.size(); at < png.size();) {
        const auto length = qFromBigEndian<quint32>(png.constData() + at);
        chunks.push_back({png.mid(at + 4, 4), png.mid(at + 8, length)});
        at += 12 + qsizetype(length);
    }
    return chunks;
}

std::vector<QColor> ImageSamples::quarterColors(const QImage& image) {
    const int left = image.width() / 4;
    const int right = image.width() * 3 / 4;
    const int top = image.height() / 4;
    const int bottom = image.height() * 3 / 4;
    return {image.pixelColor(left, top), image.pixelColor(right, top), image.pixelColor(left, bottom),
            image.pixelColor(right, bottom)};
}

int ImageSamples::largestDifference(const std::vector<QColor>& left, const std::vector<QColor>& right) {
    int largest = 0;
    for (size_t i = 0; i < left.size(); ++i) {
        largest = std::max(
            {largest, std::abs(left[i].red() - right[i].red()), std::abs(left[i].green() - right[i].green()),
             std::abs(left[i].blue() - right[i].blue()), std::abs(left[i].alpha() - right[i].alpha())});
    }
    return largest;
}

} // namespace Veilshot
