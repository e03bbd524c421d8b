#include "tests/VeilshotCore/Rendering/RenderingFixtures.h"

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace Veilshot {

QImage paintedImage(QSize size, const std::function<QColor(int, int)>& colour) {
    QImage image(size, QImage::Format_RGBA8888);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixelColor(x, y, colour(x, y));
    }
    return image;
}

QImage blackAndWhiteNoise(QSize size) {
    std::mt19937 random(11);
    const auto bit = [&] { return random() & 1024 ? 255 : 0; };
    return paintedImage(size, [&](int, int) { return QColor(bit(), bit(), bit()); });
}

QImage translucentNoise(QSize size) {
    std::mt19937 random(12);
    const auto byte = [&] { return static_cast<int>(random() >> 8 & 255); };
    return paintedImage(size,
                        [&](int, int) { return QColor(byte(), byte(), byte(), byte() < 85 ? 0 : byte()); });
}

SensitiveRegions regionsOver(QSize image, const std::vector<QRect>& pixels) {
    SensitiveRegions regions;
    for (const QRect& rect : pixels) {
        // A quarter of a pixel short on every side: rounding outward has to make up for it.
        const QRectF inside = QRectF(rect).adjusted(0.25, 0.25, -0.25, -0.25);
        regions.emplace_back(QUuid::createUuid(), NormalizedRect::fromPixels(inside, image),
                             SensitiveKind::email);
    }
    return regions;
}

SensitiveRegions wholeImage() {
    return {SensitiveRegion(QUuid::createUuid(), NormalizedRect::unit(), SensitiveKind::custom)};
}

QString firstDifference(const QImage& actual, const QImage& expected) {
    return firstDifferenceOutside({}, actual, expected);
}

QString firstDifferenceOutside(const std::vector<QRect>& pixels, const QImage& actual,
                               const QImage& expected) {
    if (actual.size() != expected.size() || actual.format() != expected.format())
        return u"size or format"_s;
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            if (std::ranges::any_of(pixels, [&](const QRect& rect) { return rect.contains(x, y); }))
                continue;
            const uchar* got = actual.constScanLine(y) + 4 * x;
            const uchar* wanted = expected.constScanLine(y) + 4 * x;
            if (!std::equal(got, got + 4, wanted))
                return u"(%1, %2): %3 instead of %4"_s.arg(x).arg(y).arg(
                    actual.pixelColor(x, y).name(QColor::HexArgb),
                    expected.pixelColor(x, y).name(QColor::HexArgb));
        }
    }
    return {};
}

} // namespace Veilshot
