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

    /// What the image is made from. Lengths are in device-independent pixels, of which each is
    /// `devicePixelRatio` of the image's. The blur is a Gaussian with half of `blurRadius` as its standard
    /// deviation.
    struct Source {
        QSizeF size; ///< of the rectangle
        qreal cornerRadius;
        qreal blurRadius;
        QColor color;
        int devicePixelRatio;

        /// The smallest rectangle with the same image: all that are long enough share one.
        Source shortened() const;
        friend bool operator==(const Source&, const Source&) = default;
    };
    static ShadowImage make(const Source& source);
};

} // namespace Veilshot
