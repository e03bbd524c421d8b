#pragma once

#include <QRect>
#include <vector>

namespace Veilshot {

/// Covers an area with tiles of about equal size, none longer or wider than `longestSide`, so that everything
/// in it of up to `overlap` pixels lies whole in at least one of them. `overlap` is less than `longestSide`.
/// An area that needs no division is its own tile; an empty one has none.
std::vector<QRect> overlappingTiles(const QRect& area, int longestSide, int overlap);

} // namespace Veilshot
