#pragma once

#include <QRect>
#include <QSize>

namespace Veilshot {

/// A rectangle in fractions of an image's width and height. The origin is the image's bottom-left
/// corner and y grows upward; (x, y) is the rectangle's own bottom-left corner.
/// Only the renderer, the preview and the analyzers turn it into a raster's top-left pixels.
struct NormalizedRect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    /// The whole image.
    static constexpr NormalizedRect unit() { return {0, 0, 1, 1}; }

    /// From a rectangle in pixels with a top-left origin. The image must not be empty.
    static NormalizedRect fromPixels(const QRectF& pixels, QSize image);

    constexpr double maxX() const { return x + width; }
    constexpr double maxY() const { return y + height; }
    constexpr double midX() const { return x + width / 2; }
    constexpr double midY() const { return y + height / 2; }
    constexpr double area() const { return width * height; }
    /// True when nothing lies inside: a side is zero, negative or not a number.
    constexpr bool isEmpty() const { return !(width > 0 && height > 0); }

    /// The same area with non-negative sides.
    NormalizedRect standardized() const;
    /// The common area; an empty rectangle when there is none. Both must be standardized.
    NormalizedRect intersected(const NormalizedRect& other) const;
    /// The smallest rectangle around both; an empty one adds nothing.
    NormalizedRect united(const NormalizedRect& other) const;
    /// Grown by `dx` on the left and on the right and by `dy` at the bottom and at the top.
    NormalizedRect enlarged(double dx, double dy) const;

    /// In pixels with a top-left origin, not rounded.
    QRectF toPixels(QSize image) const;
    /// The whole pixels that it touches, with a top-left origin, clipped to the image: every edge is
    /// rounded outward, so that the pixels never cover less than the rectangle. Empty when none is left.
    QRect toCoveredPixels(QSize image) const;

    friend constexpr bool operator==(const NormalizedRect&, const NormalizedRect&) = default;
};

} // namespace Veilshot
