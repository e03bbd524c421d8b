#pragma once

#include <functional>
#include <opencv2/core.hpp>
#include <vector>

namespace Veilshot {

/// How far apart two pieces of one line may be, as a multiple of the taller one's height, and how much of the
/// shorter one's height they must share.
struct Adjacency {
    double gap;
    double overlap;
};

/// Calls `join` with the indices of every pair of adjacent boxes, the left one first. All lie within `rows`.
void forAdjacentPairs(const std::vector<cv::Rect>& boxes, int rows, const Adjacency& adjacency,
                      const std::function<void(int left, int right)>& join);

} // namespace Veilshot
