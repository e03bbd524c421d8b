#include "VeilshotCore/Rendering/RegionRows.h"

#include <algorithm>

namespace Veilshot {

std::span<const QRect> rectsInRow(const QRegion& region, int y) {
    const auto first = std::partition_point(region.begin(), region.end(),
                                            [&](const QRect& rect) { return rect.bottom() < y; });
    const auto last = std::find_if(first, region.end(), [&](const QRect& rect) { return rect.top() > y; });
    return {first, last};
}

} // namespace Veilshot
