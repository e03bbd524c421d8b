#include "VeilshotCore/Analysis/PhotoRegions.h"

#include <array>
#include <cstring>
#include <opencv2/imgproc.hpp>

namespace Veilshot {

namespace {

constexpr int cellSide = 8;
/// The largest step, in any channel, that counts as the texture of a photograph.
constexpr int largestSmallStep = 20;

// Shares of small steps, in 255ths. Rendered text never exceeded 0.17 over 3×3 cells; nearly all faces
// exceed 0.35.
constexpr double photoShareOfNeighbourhood = 0.22 * 255;
constexpr double photoShareOfCell = 0.40 * 255;

constexpr int fewestCells = 3;
constexpr int shortestSide = 16;
/// A face at the edge of a photograph needs some surroundings to be recognized.
constexpr int margin = cellSide;
/// Rectangles of one photograph overlap by more than this part of the smaller one.
constexpr double overlapOfOnePhoto = 0.60;

constexpr int cellsAlong(int pixels) {
    return (pixels + cellSide - 1) / cellSide;
}

/// 1 where the colours of two pixels differ by a small step, else 0. The bytes of the two rows are compared
/// all at once, so that compilers turn this into vector instructions.
void markSmallSteps(const uchar* row, const uchar* other, int pixels, uchar* differences,
                    std::uint32_t* steps) {
    for (int i = 0; i < 4 * pixels; ++i)
        differences[i] = std::max(row[i], other[i]) - std::min(row[i], other[i]);
    for (int x = 0; x < pixels; ++x) {
        const int largest = std::max({differences[4 * x], differences[4 * x + 1], differences[4 * x + 2]});
        steps[x] += largest > 0 && largest <= largestSmallStep;
    }
}

/// For every cell the share, in 255ths, of its pixels' steps to the right and down that are small.
cv::Mat smallStepShares(const QImage& image) {
    const int width = image.width();
    const int height = image.height();
    cv::Mat shares(cellsAlong(height), cellsAlong(width), CV_8U);
    std::vector<uchar> differences(4 * static_cast<std::size_t>(width));
    std::vector<std::uint32_t> steps(width);
    for (int cellY = 0; cellY < shares.rows; ++cellY) {
        const int top = cellY * cellSide;
        const int bottom = std::min(top + cellSide, height);
        const int downSteps = std::min(bottom, height - 1) - top;
        std::ranges::fill(steps, 0U);
        for (int y = top; y < bottom; ++y) {
            const uchar* row = image.constScanLine(y);
            markSmallSteps(row, row + 4, width - 1, differences.data(), steps.data());
            if (y + 1 < height)
                markSmallSteps(row, image.constScanLine(y + 1), width, differences.data(), steps.data());
        }
        for (int cellX = 0; cellX < shares.cols; ++cellX) {
            const int left = cellX * cellSide;
            const int right = std::min(left + cellSide, width);
            std::uint32_t small = 0;
            for (int x = left; x < right; ++x)
                small += steps[x];
            const int rightSteps = std::min(right, width - 1) - left;
            const int all = rightSteps * (bottom - top) + downSteps * (right - left);
            shares.at<uchar>(cellY, cellX) = all > 0 ? static_cast<uchar>(255 * small / all) : 0;
        }
    }
    return shares;
}

cv::Mat photoCells(const cv::Mat& shares) {
    cv::Mat neighbourhood;
    cv::blur(shares, neighbourhood, {3, 3}, {-1, -1}, cv::BORDER_REPLICATE);
    const cv::Mat cells = (neighbourhood > photoShareOfNeighbourhood) | (shares > photoShareOfCell);
    cv::Mat closed;
    cv::morphologyEx(cells, closed, cv::MORPH_CLOSE, cv::Mat::ones(3, 3, CV_8U));
    return closed;
}

bool belongToOnePhoto(const QRect& a, const QRect& b) {
    const auto area = [](const QRect& rect) { return double(rect.width()) * rect.height(); };
    const QRect common = a & b;
    return !common.isEmpty() && area(common) > overlapOfOnePhoto * std::min(area(a), area(b));
}

/// One pass from top to bottom; each rectangle meets only those that begin above its bottom edge, because
/// a noisy picture has tens of thousands. Returns whether any two became one.
bool mergeOnce(std::vector<QRect>& regions) {
    std::ranges::sort(regions, [](const QRect& a, const QRect& b) {
        return std::pair(a.y(), a.x()) < std::pair(b.y(), b.x());
    });
    bool merged = false;
    for (std::size_t i = 0; i < regions.size(); ++i) {
        if (regions[i].isEmpty())
            continue;
        for (std::size_t j = i + 1; j < regions.size() && regions[j].y() <= regions[i].bottom(); ++j) {
            if (!belongToOnePhoto(regions[i], regions[j]))
                continue;
            regions[i] |= regions[j];
            regions[j].setHeight(0);
            merged = true;
        }
    }
    std::erase_if(regions, [](const QRect& region) { return region.isEmpty(); });
    return merged;
}

} // namespace

std::vector<QRect> photoRegions(const QImage& image) {
    if (image.width() < shortestSide || image.height() < shortestSide)
        return {};
    cv::Mat labels;
    cv::Mat components;
    cv::Mat centres;
    const int count =
        cv::connectedComponentsWithStats(photoCells(smallStepShares(image)), labels, components, centres);
    std::vector<QRect> regions;
    for (int i = 1; i < count; ++i) {
        const int* component = components.ptr<int>(i);
        const QRect cells(component[cv::CC_STAT_LEFT], component[cv::CC_STAT_TOP],
                          component[cv::CC_STAT_WIDTH], component[cv::CC_STAT_HEIGHT]);
        const QRect pixels = QRect(cells.topLeft() * cellSide, cells.size() * cellSide) & image.rect();
        if (component[cv::CC_STAT_AREA] >= fewestCells && pixels.width() >= shortestSide &&
            pixels.height() >= shortestSide)
            regions.push_back(pixels.adjusted(-margin, -margin, margin, margin) & image.rect());
    }
    while (mergeOnce(regions)) {
    }
    return regions;
}

} // namespace Veilshot
