#include "VeilshotCore/Rendering/ScreenshotRedactor.h"

#include "VeilshotCore/Rendering/BitmapPool.h"
#include "VeilshotCore/Rendering/GaussianBlur.h"
#include "VeilshotCore/Rendering/Pixelation.h"
#include "VeilshotCore/Rendering/ShrunkSource.h"

#include <QColorSpace>
#include <algorithm>
#include <array>
#include <cstring>
#include <new>

namespace Veilshot {

namespace {

constexpr double smallestCell = 6;
/// A neighbouring pixel's weight is then below 1e-9. An even smaller sigma would divide by zero.
constexpr double smallestVisibleSigma = 0.15;

QRegion coveredPixels(const SensitiveRegions& regions, QSize size) {
    QRegion covered;
    for (const SensitiveRegion& region : regions)
        covered += region.normalizedRect().toCoveredPixels(size);
    return covered;
}

void paintBlack(const QRegion& region, PixelRows target) {
    constexpr std::array<uchar, 4> black{0, 0, 0, 255};
    for (const QRect& rect : region) {
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            for (int x = rect.left(); x <= rect.right(); ++x)
                std::memcpy(target.pixel(x, y), black.data(), black.size());
        }
    }
}

void paint(const QImage& source, qint64 sourceKey, const QRegion& region, RedactionStyle style,
           double intensity, PixelRows target) {
    switch (style) {
    case RedactionStyle::smooth:
        return paintGaussianBlur(source, sourceKey, region, intensity, target);
    case RedactionStyle::pixelate:
        return paintPixelation(source, region, intensity > smallestCell ? intensity : smallestCell, target);
    case RedactionStyle::blackout:
        return paintBlack(region, target);
    }
}

} // namespace

QImage ScreenshotRedactor::render(const QImage& image, const SensitiveRegions& regions, RedactionStyle style,
                                  double intensity) const {
    if (regions.empty() || image.isNull())
        return image;
    try {
        const QImage source =
            image.convertToFormat(QImage::Format_RGBA8888); // the same one if it is that already
        if (source.isNull())
            return {};
        const bool isVisible = style != RedactionStyle::smooth || intensity >= smallestVisibleSigma;
        const QRegion painted = isVisible ? coveredPixels(regions, source.size()) : QRegion();
        // The caller's key: what was converted has a new one each time.
        const qint64 sourceKey = image.cacheKey();
        std::unique_ptr<PooledBitmap> bitmap = BitmapPool::shared().take(source, sourceKey, painted);
        paint(source, sourceKey, painted, style, intensity, bitmap->rows());
        QImage result = BitmapPool::shared().wrap(std::move(bitmap));
        result.setColorSpace(source.colorSpace());
        return result;
    } catch (const std::bad_alloc&) {
        return {};
    }
}

void ScreenshotRedactor::releaseMemory() {
    BitmapPool::shared().release();
    ShrunkSource::release();
}

} // namespace Veilshot
