#pragma once

#include <QRegion>
#include <span>

namespace Veilshot {

/// The rectangles of `region` that cross row `y`, from left to right, disjoint and not touching. They belong
/// to the region. A region is kept in bands of equal height, so that all of them share top and bottom.
std::span<const QRect> rectsInRow(const QRegion& region, int y);

/// The union of `map(rect)` over the region's rectangles.
template<typename Map>
QRegion mapped(const QRegion& region, Map map) {
    QRegion result;
    for (const QRect& rect : region)
        result += map(rect);
    return result;
}

/// Calls `visit(y, rects)` for every row that the region touches, from top to bottom.
template<typename Visit>
void forEachRow(const QRegion& region, Visit visit) {
    const QRect bounds = region.boundingRect();
    for (int y = bounds.top(); y <= bounds.bottom(); ++y) {
        if (const std::span<const QRect> rects = rectsInRow(region, y); !rects.empty())
            visit(y, rects);
    }
}

} // namespace Veilshot
