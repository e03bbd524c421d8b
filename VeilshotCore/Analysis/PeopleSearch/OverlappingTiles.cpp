#include "VeilshotCore/Analysis/PeopleSearch/OverlappingTiles.h"

namespace Veilshot {

namespace {

struct Span {
    int start;
    int length;
};

std::vector<Span> spans(int start, int length, int longest, int overlap) {
    if (length <= longest)
        return {{start, length}};
    const int advance = longest - overlap;
    const int count = (length - overlap + advance - 1) / advance;
    const int each = (length + (count - 1) * overlap + count - 1) / count;
    std::vector<Span> spans;
    for (int i = 0; i < count; ++i)
        spans.push_back({start + std::min(i * (each - overlap), length - each), each});
    return spans;
}

} // namespace

std::vector<QRect> overlappingTiles(const QRect& area, int longestSide, int overlap) {
    if (area.isEmpty())
        return {};
    std::vector<QRect> tiles;
    for (const Span row : spans(area.y(), area.height(), longestSide, overlap)) {
        for (const Span column : spans(area.x(), area.width(), longestSide, overlap))
            tiles.emplace_back(column.start, row.start, column.length, row.length);
    }
    return tiles;
}

} // namespace Veilshot
