#pragma once

#include "VeilshotCore/Rendering/PixelRows.h"

#include <QImage>
#include <QRegion>

namespace Veilshot {

/// Writes what a Gaussian blur of the whole source, its edges repeated without end, puts into `region`.
/// Only the region and the halo that its blur can see are read; of an opaque source that was blurred before
/// with a sigma of 8 or more, samples that were made then take the place of the pixels. The cost hardly
/// depends on sigma.
///
/// `source` is in Format_RGBA8888, `sourceKey` identifies its pixels, `region` inside of it, `sigma` above
/// zero, in pixels, and may be infinite. `target` has the size of the source and does not overlap it; nothing
/// outside the region is written. Colours are blurred weighted by alpha and are straight again in the result.
/// Every channel is within two grey levels of the exact blur (the colours times alpha: those of an almost
/// transparent pixel mean little). Throws std::bad_alloc.
void paintGaussianBlur(const QImage& source, qint64 sourceKey, const QRegion& region, double sigma,
                       PixelRows target);

} // namespace Veilshot
