#pragma once

#include "VeilshotCore/Rendering/PixelRows.h"

#include <QImage>
#include <QRegion>

namespace Veilshot {

/// Writes what pixelating the whole source, its edges repeated without end, puts into `region`.
///
/// Cell (i, j) is the square of `side` pixels from (W/2 + i·side, H/2 + j·side), counted from the image's
/// top-left corner: the image's centre is a corner of four cells. A pixel belongs to the cell in which its
/// centre lies; a cell holds its left and top edges but not its right and bottom ones. Sides need not be
/// whole. A cell's colour is the average over all its pixels, those beyond the image included:
///   alpha  = Σ alpha / count,
///   colour = Σ colour·alpha / Σ alpha,
/// both rounded to the nearest integer, halves upward, in exact integer arithmetic. A cell whose alpha
/// rounds to zero has no colour (0, 0, 0, 0).
///
/// `source` is in Format_RGBA8888, `region` inside of it, `side` above zero; sides beyond 2^20 count as 2^20.
/// `target` has the size of the source and does not overlap it; nothing outside the region is written. Throws
/// std::bad_alloc.
void paintPixelation(const QImage& source, const QRegion& region, double side, PixelRows target);

} // namespace Veilshot
