#include "VeilshotCore/Analysis/TextRecognition/BoxAdjacency.h"

#include <algorithm>
#include <numeric>

namespace Veilshot {

namespace {

/// Boxes are indexed by bands of this many rows.
constexpr int bandHeight = 32;

bool areAdjacent(const cv::Rect& left, const cv::Rect& right, const Adjacency& adjacency) {
    const int shorter = std::min(left.height, right.height);
    const int taller = std::max(left.height, right.height);
    const int common = std::min(left.br().y, right.br().y) - std::max(left.y, right.y);
    if (common < adjacency.overlap * shorter)
        return false;
    const int gap = right.x - left.br().x;
    // A heading beside small print is not one line with it; a dash beside a capital is, and so is an accent
    // above. Neither is beside a picture code, however near the dashes of a dotted rule come to it.
    constexpr int tallestBesideDash = 40;
    const bool areUnlike = taller > 3.2 * shorter && taller > 30;
    if (areUnlike && (taller > tallestBesideDash || (gap > 0 && shorter > 4)))
        return false;
    return gap <= adjacency.gap * std::min(taller, 60);
}

} // namespace

void forAdjacentPairs(const std::vector<cv::Rect>& boxes, int rows, const Adjacency& adjacency,
                      const std::function<void(int left, int right)>& join) {
    constexpr int farthest = 400;
    constexpr std::size_t crowded = 64;
    std::vector<int> order(boxes.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::sort(order, {}, [&](int index) { return boxes[index].x; });
    std::vector<std::vector<int>> bands(rows / bandHeight + 1);
    for (const int right : order) {
        const cv::Rect& box = boxes[right];
        const int firstBand = box.y / bandHeight;
        const int lastBand = (box.br().y - 1) / bandHeight;
        for (int band = firstBand; band <= lastBand; ++band) {
            for (const int left : bands[band]) {
                if (areAdjacent(boxes[left], box, adjacency))
                    join(left, right);
            }
            if (bands[band].size() > crowded)
                std::erase_if(bands[band], [&](int left) { return boxes[left].br().x < box.x - farthest; });
            bands[band].push_back(right);
        }
    }
}

} // namespace Veilshot
