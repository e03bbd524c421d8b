#pragma once

#include <QColor>
#include <QImage>
#include <QSizeF>

namespace Veilshot {

/// The shadow of a rounded rectangle as an image whose middle row and column can be stretched.
struct ShadowImage {
    QImage image;
    /// How far the shadow reaches beyond the rectangle, on every side.
    int margin = 0;
    /// From the edges of the image to the part that stretches.
    int horizontalPadding = 0;
    int verticalPadding = 0;

    /// For a rectangle of `size`. The blur is a Gaussian with half of `blurRadius` as its standard deviation.
    /// Lengths are in device-independent pixels, of which each is `devicePixelRatio` of the image's.
    static ShadowImage make(QSizeF size, qreal cornerRadius, qreal blurRadius, const QColor& color,
                            int devicePixelRatio);
};

} // namespace Veilshot
