#include "VeilshotCore/Analysis/TextRecognition/BackgroundContrast.h"

#include "VeilshotCore/Analysis/TextRecognition/DisjointSets.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <numeric>
#include <opencv2/imgproc.hpp>
#include <vector>

namespace Veilshot {

namespace {

/// Neighbours whose channels differ by no more belong to one area: this bridges gradients and the quiet parts
/// of JPEG pictures, but no edge of a letter.
constexpr int sameColourTolerance = 2;

/// An area with a bounding box and a surface above these is no letter.
constexpr double largeBoxSurface = 60'000;
constexpr int largeSurface = 4'000;

/// Smaller areas are background when they enclose letters: a badge has several holes, a letter at most two.
constexpr int leastEnclosedHoles = 3;
constexpr int leastHoleSurface = 6;
constexpr int leastBadgeSurface = 250;
constexpr int leastBadgeWidth = 20;
constexpr int leastBadgeHeight = 9;

/// So is one that runs along all edges of a box wider than high, a cell or a button, if it encloses anything
/// at all: in some fonts the letters of a whole word touch.
constexpr double leastShareOfEdge = 0.85;
constexpr double leastWidthOfCell = 1.3; // in heights

/// And one of the colour of a large background if a circle of this radius fits into it, such as the rest of a
/// table's cell beside what covers it: no stroke of a letter is as thick.
constexpr int leastRestSurface = 1'000;
constexpr double thickestStroke = 14;

/// Nor has anything as wide, letters that touch but for headlines, strokes as thick as this: it is a gap
/// between cards.
constexpr double leastWidthOfGap = 2; // in heights
constexpr double thickestStrokeInWidth = 4;

/// An area as low as a line of text is the ground of one only if it fills its box; holes and all, letters do
/// not.
constexpr int tallestLine = 160;
constexpr double leastFillOfBar = 0.4;

/// Beyond this many pixels from any flat area there is no telling which background a pixel has.
constexpr float farFromBackground = 80;
constexpr int localMeanSide = 51;

/// There, the noise and the texture of the picture are taken off: this many times its median contrast.
constexpr int noiseMargin = 2;

/// The median of values from 0 to 255, given how often each occurs.
int median(const std::array<int, 256>& counts) {
    const int total = std::accumulate(counts.begin(), counts.end(), 0);
    int below = 0;
    for (int value = 0; value < 256; ++value) {
        below += counts[value];
        if (2 * below >= total)
            return value;
    }
    return 255;
}

struct Area {
    int surface = 0;
    cv::Vec3b colour; ///< of its first pixel
    int left = INT_MAX, top = INT_MAX, right = -1, bottom = -1;

    cv::Rect box() const { return {left, top, right - left + 1, bottom - top + 1}; }
};

struct Areas {
    cv::Mat labels; ///< CV_32S, index into `list`
    std::vector<Area> list;
};

bool hasSameColour(const cv::Vec3b& first, const cv::Vec3b& second) {
    return std::abs(first[0] - second[0]) <= sameColourTolerance &&
           std::abs(first[1] - second[1]) <= sameColourTolerance &&
           std::abs(first[2] - second[2]) <= sameColourTolerance;
}

/// The 4-connected areas of nearly equal colour.
Areas findAreas(const cv::Mat& colours) {
    Areas areas;
    areas.labels.create(colours.size(), CV_32S);
    DisjointSets sets;
    for (int y = 0; y < colours.rows; ++y) {
        const auto* row = colours.ptr<cv::Vec3b>(y);
        const auto* rowAbove = y > 0 ? colours.ptr<cv::Vec3b>(y - 1) : nullptr;
        int* labels = areas.labels.ptr<int>(y);
        const int* labelsAbove = y > 0 ? areas.labels.ptr<int>(y - 1) : nullptr;
        for (int x = 0; x < colours.cols; ++x) {
            const bool joinsLeft = x > 0 && hasSameColour(row[x], row[x - 1]);
            const bool joinsAbove = rowAbove && hasSameColour(row[x], rowAbove[x]);
            if (joinsLeft) {
                labels[x] = labels[x - 1];
                if (joinsAbove && labelsAbove[x] != labels[x])
                    sets.join(labels[x], labelsAbove[x]);
            } else {
                labels[x] = joinsAbove ? labelsAbove[x] : sets.add();
            }
        }
    }
    std::vector<int> dense(sets.size(), -1);
    for (int y = 0; y < colours.rows; ++y) {
        int* labels = areas.labels.ptr<int>(y);
        for (int x = 0; x < colours.cols; ++x) {
            int& index = dense[sets.find(labels[x])];
            if (index < 0) {
                index = static_cast<int>(areas.list.size());
                areas.list.emplace_back().colour = colours.at<cv::Vec3b>(y, x);
            }
            labels[x] = index;
            Area& area = areas.list[index];
            ++area.surface;
            area.left = std::min(area.left, x);
            area.right = std::max(area.right, x);
            area.top = std::min(area.top, y);
            area.bottom = y;
        }
    }
    return areas;
}

int enclosedHoles(const cv::Mat& labels, int index, const cv::Rect& box) {
    cv::Mat holeLabels;
    cv::Mat stats;
    cv::Mat centroids;
    const cv::Mat outside = labels(box) != index;
    const int count = cv::connectedComponentsWithStats(outside, holeLabels, stats, centroids, 8);
    int enclosed = 0;
    for (int hole = 1; hole < count; ++hole) {
        const int* stat = stats.ptr<int>(hole);
        const int left = stat[cv::CC_STAT_LEFT];
        const int top = stat[cv::CC_STAT_TOP];
        const bool touchesEdge = left == 0 || top == 0 || left + stat[cv::CC_STAT_WIDTH] == box.width ||
                                 top + stat[cv::CC_STAT_HEIGHT] == box.height;
        if (!touchesEdge && stat[cv::CC_STAT_AREA] >= leastHoleSurface)
            ++enclosed;
    }
    return enclosed;
}

bool isCell(const cv::Mat& labels, int index, const cv::Rect& box) {
    if (box.width < leastWidthOfCell * box.height)
        return false;
    const cv::Mat inside = labels(box) == index;
    const auto runsAlong = [](const cv::Mat& edge) {
        return cv::countNonZero(edge) >= leastShareOfEdge * static_cast<double>(edge.total());
    };
    return runsAlong(inside.row(0)) && runsAlong(inside.row(box.height - 1)) && runsAlong(inside.col(0)) &&
           runsAlong(inside.col(box.width - 1));
}

bool isThick(const cv::Mat& labels, int index, const cv::Rect& box) {
    const double thickest =
        box.width >= leastWidthOfGap * box.height ? thickestStrokeInWidth : thickestStroke;
    if (std::min(box.width, box.height) < 2 * thickest)
        return false;
    cv::Mat inside;
    cv::copyMakeBorder(labels(box) == index, inside, 1, 1, 1, 1, cv::BORDER_CONSTANT, cv::Scalar(0));
    cv::Mat depth;
    cv::distanceTransform(inside, depth, cv::DIST_L2, cv::DIST_MASK_3);
    double deepest = 0;
    cv::minMaxLoc(depth, nullptr, &deepest);
    return deepest > thickest;
}

bool isBackground(const Areas& areas, int index) {
    const Area& area = areas.list[index];
    const cv::Rect box = area.box();
    if (area.surface < leastBadgeSurface || box.width < leastBadgeWidth || box.height < leastBadgeHeight)
        return false;
    const double boxSurface = static_cast<double>(box.width) * box.height;
    if (box.height <= tallestLine && area.surface < leastFillOfBar * boxSurface)
        return false; // letters tied together by an underline
    if (boxSurface > largeBoxSurface)
        return area.surface > largeSurface; // otherwise the thin outline of a box
    const int holes = enclosedHoles(areas.labels, index, box);
    return holes >= leastEnclosedHoles || (holes > 0 && isCell(areas.labels, index, box));
}

/// For each area 0 if it is background, 255 otherwise.
std::vector<uchar> maskOfAreas(const Areas& areas) {
    std::vector<uchar> mask;
    std::vector<cv::Vec3b> largeColours;
    for (int index = 0; index < static_cast<int>(areas.list.size()); ++index) {
        const bool isGround = isBackground(areas, index);
        mask.push_back(isGround ? 0 : 255);
        if (isGround && areas.list[index].surface > largeSurface)
            largeColours.push_back(areas.list[index].colour);
    }
    const auto isRest = [&](int index) {
        const Area& area = areas.list[index];
        return area.surface > leastRestSurface &&
               std::ranges::any_of(largeColours,
                                   [&](auto colour) { return hasSameColour(area.colour, colour); }) &&
               isThick(areas.labels, index, area.box());
    };
    for (int index = 0; index < static_cast<int>(mask.size()); ++index) {
        if (mask[index] && isRest(index))
            mask[index] = 0;
    }
    return mask;
}

/// 0 on background pixels, 255 elsewhere.
cv::Mat foregroundMask(const cv::Mat& colours) {
    const Areas areas = findAreas(colours);
    const std::vector<uchar> mask = maskOfAreas(areas);
    cv::Mat foreground(colours.size(), CV_8U);
    for (int y = 0; y < colours.rows; ++y) {
        const int* labels = areas.labels.ptr<int>(y);
        uchar* row = foreground.ptr(y);
        for (int x = 0; x < colours.cols; ++x)
            row[x] = mask[labels[x]];
    }
    return foreground;
}

} // namespace

cv::Mat backgroundContrast(const cv::Mat& colours) {
    const cv::Mat foreground = foregroundMask(colours);
    cv::Mat contrast(colours.size(), CV_8U, cv::Scalar(0));

    // With DIST_LABEL_PIXEL every background pixel has a label of its own, which all pixels nearest to it
    // share.
    const bool hasBackground = cv::countNonZero(foreground) < static_cast<int>(foreground.total());
    cv::Mat distance;
    cv::Mat nearest;
    std::vector<cv::Vec3b> backgroundColours;
    if (hasBackground) {
        cv::distanceTransform(foreground, distance, nearest, cv::DIST_L2, cv::DIST_MASK_5,
                              cv::DIST_LABEL_PIXEL);
        backgroundColours.resize(foreground.total() + 1);
        for (int y = 0; y < colours.rows; ++y) {
            const uchar* isForeground = foreground.ptr(y);
            const int* labels = nearest.ptr<int>(y);
            const auto* row = colours.ptr<cv::Vec3b>(y);
            for (int x = 0; x < colours.cols; ++x) {
                if (!isForeground[x])
                    backgroundColours[labels[x]] = row[x];
            }
        }
    }
    const auto contrastTo = [](const cv::Vec3b& colour, const cv::Vec3b& background) {
        return std::max({std::abs(colour[0] - background[0]), std::abs(colour[1] - background[1]),
                         std::abs(colour[2] - background[2])});
    };
    const auto isFar = [&](int x, int y) {
        return !hasBackground || distance.at<float>(y, x) > farFromBackground;
    };
    cv::Mat localMean;
    std::array<int, 256> farContrasts{};
    for (int y = 0; y < colours.rows; ++y) {
        const uchar* isForeground = foreground.ptr(y);
        const auto* row = colours.ptr<cv::Vec3b>(y);
        uchar* out = contrast.ptr(y);
        for (int x = 0; x < colours.cols; ++x) {
            if (!isForeground[x])
                continue;
            if (!isFar(x, y)) {
                out[x] = static_cast<uchar>(contrastTo(row[x], backgroundColours[nearest.at<int>(y, x)]));
                continue;
            }
            if (localMean.empty())
                cv::boxFilter(colours, localMean, -1, {localMeanSide, localMeanSide});
            out[x] = static_cast<uchar>(contrastTo(row[x], localMean.at<cv::Vec3b>(y, x)));
            ++farContrasts[out[x]];
        }
    }
    if (localMean.empty())
        return contrast;
    const int noise = noiseMargin * median(farContrasts);
    for (int y = 0; y < colours.rows; ++y) {
        const uchar* isForeground = foreground.ptr(y);
        uchar* out = contrast.ptr(y);
        for (int x = 0; x < colours.cols; ++x) {
            if (isForeground[x] && isFar(x, y))
                out[x] = static_cast<uchar>(std::max(0, out[x] - noise));
        }
    }
    return contrast;
}

} // namespace Veilshot
