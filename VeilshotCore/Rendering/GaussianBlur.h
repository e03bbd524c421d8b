#pragma once

#include "VeilshotCore/Rendering/PixelRows.h"

#include <QImage>
#include <QRegion>

namespace Veilshot {

/// Writes what a Gaussian blur of the whole source, its edges repeated without end, puts into `region`.
/// Only the region and the halo that its blur can see are read. The cost hardly depends on sigma.
///
/// `source` is in Format_RGBA8888, `region` inside of it, `sigma` above zero, in pixels, and may be infinite.
/// `target` has the size of the source and does not overlap it; nothing outside the region is written.
/// Colours are blurred weighted by alpha and are straight again in the result. Every channel is within two
/// grey levels of the exact blur (the colours times alpha: those of an almost transparent pixel mean little).
/// Throws std::bad_alloc.
void paintGaussianBlur(const QImage& source, const QRegion& region, double sigma, PixelRows target);

} // namespace Veilshot
