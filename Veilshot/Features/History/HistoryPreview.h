#pragma once

#include <QImage>

namespace Veilshot::HistoryPreview {

/// The size of an image shrunk, never enlarged, until its longer side has at most `maxPixels`. Fractions are
/// cut off, so that the longer side may be one pixel shorter; no side becomes 0.
QSize previewSize(QSize image, int maxPixels);

/// The image in that size: averaged over all its pixels, in straight-alpha RGBA. Null if memory runs out.
QImage downscaled(const QImage& image, int maxPixels);

} // namespace Veilshot::HistoryPreview
