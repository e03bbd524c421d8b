#include "VeilshotCore/Analysis/TextRecognition/LineGrouping.h"

#include "VeilshotCore/Analysis/TextRecognition/BoxAdjacency.h"
#include "VeilshotCore/Analysis/TextRecognition/DisjointSets.h"

#include <algorithm>
#include <climits>
#include <optional>

namespace Veilshot {

namespace {

/// Groups are indexed by bands of this many rows.
constexpr int bandHeight = 32;

std::vector<LineGroup> groupsOf(DisjointSets& sets, const std::vector<Blob>& blobs) {
    std::vector<LineGroup> groups;
    std::vector<int> groupOfSet(blobs.size(), -1);
    for (int blob = 0; blob < sets.size(); ++blob) {
        int& group = groupOfSet[sets.find(blob)];
        if (group < 0) {
            group = static_cast<int>(groups.size());
            groups.push_back({{}, blobs[blob].box});
        }
        groups[group].blobs.push_back(blob);
        groups[group].box |= blobs[blob].box;
    }
    return groups;
}

/// The groups by the bands of rows that they stand in, so that neighbours are found without asking everybody.
class GroupBands {
public:
    GroupBands(const std::vector<LineGroup>& groups, int rows) : m_bands(rows / bandHeight + 1) {
        for (const LineGroup& group : groups) {
            for (int band = group.box.y / bandHeight; band <= (group.box.br().y - 1) / bandHeight; ++band)
                m_bands[band].push_back(&group);
        }
    }

    /// Calls `visit` for every group near the rows of `box`, for some more than once.
    template<typename Visit>
    void forNeighbours(const cv::Rect& box, Visit visit) const {
        const int first = std::max(0, (box.y - tallestText / 3) / bandHeight);
        const int last =
            std::min(static_cast<int>(m_bands.size()) - 1, (box.br().y + tallestText / 3) / bandHeight);
        for (int band = first; band <= last; ++band) {
            for (const LineGroup* group : m_bands[band])
                visit(*group);
        }
    }

private:
    std::vector<std::vector<const LineGroup*>> m_bands;
};

/// How far a mark is from the letters that it belongs to; nothing when it does not.
std::optional<int> distanceOfMark(const cv::Rect& mark, const cv::Rect& base) {
    if (base.x <= mark.br().x && base.br().x >= mark.x) { // dots and accents
        const int distance = std::max(base.y - mark.br().y, mark.y - base.br().y);
        const bool isMark = mark.height <= 0.6 * base.height && mark.width <= 1.2 * base.height &&
                            distance <= std::max(2, base.height / 3);
        return isMark ? std::optional(distance) : std::nullopt;
    }
    // A comma hangs below the letters before it; in fonts of fixed width well behind them.
    const int distance = mark.x - base.br().x;
    const bool isComma = mark.height <= 0.8 * base.height && mark.width <= 0.5 * base.height &&
                         mark.y <= base.br().y && mark.y > base.y + base.height / 2 &&
                         mark.br().y > base.br().y && distance >= 0 && distance <= 0.6 * base.height;
    return isComma ? std::optional(distance) : std::nullopt;
}

/// Dots, accents and commas have no height in common with the letters that they belong to, or little.
void attachMarks(const std::vector<LineGroup>& groups, int rows, DisjointSets& sets) {
    constexpr int widestMark = 40;
    constexpr int tallestMark = 20;
    const GroupBands bands(groups, rows);
    for (const LineGroup& mark : groups) {
        if (mark.box.height > tallestMark || mark.box.width > widestMark)
            continue;
        const LineGroup* nearest = nullptr;
        int nearestDistance = INT_MAX;
        bands.forNeighbours(mark.box, [&](const LineGroup& base) {
            const auto distance = distanceOfMark(mark.box, base.box);
            if (distance && *distance < nearestDistance) {
                nearestDistance = *distance;
                nearest = &base;
            }
        });
        if (nearest)
            sets.join(mark.blobs.front(), nearest->blobs.front());
    }
}

/// The colour of a column of pixels that has but one.
std::optional<cv::Vec3b> colourOfColumn(const cv::Mat& colours, int x, int top, int bottom) {
    constexpr int tolerance = 4;
    const cv::Vec3b first = colours.at<cv::Vec3b>(top, x);
    for (int y = top + 1; y < bottom; ++y) {
        if (cv::norm(colours.at<cv::Vec3b>(y, x), first, cv::NORM_INF) > tolerance)
            return std::nullopt;
    }
    return first;
}

/// Whether the border of a cell stands in the gap between the two: a thin line, however faint, that is longer
/// than they are high, with the same ground on both sides.
bool isDivided(const cv::Mat& colours, const cv::Rect& left, const cv::Rect& right) {
    constexpr int leastGap = 5;
    constexpr int thickestBorder = 3;
    constexpr int leastContrast = 6;
    const int begin = left.br().x;
    const int end = right.x;
    if (end - begin < leastGap)
        return false;
    const cv::Rect both = left | right;
    const int beyond = std::max(2, both.height / 4);
    const int top = std::max(0, both.y - beyond);
    const int bottom = std::min(colours.rows, both.br().y + beyond);
    const auto differ = [](const cv::Vec3b& first, const cv::Vec3b& second) {
        return cv::norm(first, second, cv::NORM_INF) >= leastContrast;
    };
    std::optional<cv::Vec3b> ground;
    int border = 0; // columns of another colour behind the ground
    for (int x = begin; x < end; ++x) {
        const auto colour = colourOfColumn(colours, x, top, bottom);
        if (!colour || border > thickestBorder) {
            ground.reset();
            border = 0;
        } else if (!ground) {
            ground = colour;
        } else if (differ(*colour, *ground)) {
            ++border;
        } else if (border > 0) {
            return true;
        }
    }
    return false;
}

} // namespace

std::vector<LineGroup> groupIntoLines(const TextInk& ink, const cv::Mat& colours) {
    DisjointSets sets(static_cast<int>(ink.blobs.size()));
    std::vector<cv::Rect> boxes;
    for (const Blob& blob : ink.blobs)
        boxes.push_back(blob.box);
    forAdjacentPairs(boxes, ink.contrast.rows, {1.0, 0.5}, [&](int left, int right) {
        if (!isDivided(colours, boxes[left], boxes[right]))
            sets.join(left, right);
    });
    // Whole pieces know the line's height, which single letters do not: first close neighbours, then wider
    // gaps.
    for (const Adjacency adjacency : {Adjacency{0.6, 0.55}, Adjacency{1.2, 0.55}}) {
        const std::vector<LineGroup> groups = groupsOf(sets, ink.blobs);
        boxes.clear();
        for (const LineGroup& group : groups)
            boxes.push_back(group.box);
        forAdjacentPairs(boxes, ink.contrast.rows, adjacency, [&](int left, int right) {
            if (!isDivided(colours, boxes[left], boxes[right]))
                sets.join(groups[left].blobs.front(), groups[right].blobs.front());
        });
        attachMarks(groupsOf(sets, ink.blobs), ink.contrast.rows, sets);
    }
    return groupsOf(sets, ink.blobs);
}

} // namespace Veilshot
