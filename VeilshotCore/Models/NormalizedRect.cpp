#include "VeilshotCore/Models/NormalizedRect.h"

#include <algorithm>
#include <cmath>

namespace Veilshot {

namespace {

/// Floor or ceiling as an integer inside [0, limit]; "not a number" becomes 0.
int clampedToRaster(double edge, int limit) {
    if (!(edge > 0))
        return 0;
    return edge < limit ? static_cast<int>(edge) : limit;
}

} // namespace

NormalizedRect NormalizedRect::fromPixels(const QRectF& pixels, QSize image) {
    const double width = image.width();
    const double height = image.height();
    return {pixels.x() / width, 1 - (pixels.y() + pixels.height()) / height, pixels.width() / width,
            pixels.height() / height};
}

NormalizedRect NormalizedRect::standardized() const {
    return {std::min(x, x + width), std::min(y, y + height), std::abs(width), std::abs(height)};
}

NormalizedRect NormalizedRect::intersected(const NormalizedRect& other) const {
    const double left = std::max(x, other.x);
    const double bottom = std::max(y, other.y);
    const double right = std::min(maxX(), other.maxX());
    const double top = std::min(maxY(), other.maxY());
    if (!(right > left && top > bottom))
        return {};
    return {left, bottom, right - left, top - bottom};
}

NormalizedRect NormalizedRect::united(const NormalizedRect& other) const {
    if (isEmpty())
        return other;
    if (other.isEmpty())
        return *this;
    const double left = std::min(x, other.x);
    const double bottom = std::min(y, other.y);
    return {left, bottom, std::max(maxX(), other.maxX()) - left, std::max(maxY(), other.maxY()) - bottom};
}

NormalizedRect NormalizedRect::enlarged(double dx, double dy) const {
    return {x - dx, y - dy, width + 2 * dx, height + 2 * dy};
}

QRectF NormalizedRect::toPixels(QSize image) const {
    return {x * image.width(), (1 - maxY()) * image.height(), width * image.width(), height * image.height()};
}

QRect NormalizedRect::toCoveredPixels(QSize image) const {
    // Rounded in the bottom-left space of the rectangle itself, then flipped: flipping first would move
    // an edge that lies exactly on a pixel boundary by the rounding error of 1 - y.
    // Sides are scaled before they are added for the same reason: 0.5 + 0.001 is not quite 0.501.
    const NormalizedRect rect = standardized();
    const double pixelX = rect.x * image.width();
    const double pixelY = rect.y * image.height();
    const int left = clampedToRaster(std::floor(pixelX), image.width());
    const int right = clampedToRaster(std::ceil(pixelX + rect.width * image.width()), image.width());
    const int bottom = clampedToRaster(std::floor(pixelY), image.height());
    const int top = clampedToRaster(std::ceil(pixelY + rect.height * image.height()), image.height());
    if (right <= left || top <= bottom)
        return {};
    return {left, image.height() - top, right - left, top - bottom};
}

} // namespace Veilshot
