#pragma once

#include "VeilshotCore/Rendering/ScreenshotRedactor.h"

#include <functional>

namespace Veilshot {

/// An image in Format_RGBA8888; `colour` gives the pixel at a column and a row.
QImage paintedImage(QSize size, const std::function<QColor(int, int)>& colour);
/// Every channel of every pixel is 0 or 255 by chance: the hardest case for a blur.
QImage blackAndWhiteNoise(QSize size);
/// Every value of every channel, alpha included, by chance; a third of the pixels is transparent.
QImage translucentNoise(QSize size);

/// Regions that cover exactly these pixels.
SensitiveRegions regionsOver(QSize image, const std::vector<QRect>& pixels);
SensitiveRegions wholeImage();

/// The first pixel, as text, outside of the rectangles, in which the images differ; empty
/// when there is none. They must have the same size and format.
QString firstDifference(const QImage& actual, const QImage& expected);
QString firstDifferenceOutside(const std::vector<QRect>& pixels, const QImage& actual,
                               const QImage& expected);

} // namespace Veilshot
