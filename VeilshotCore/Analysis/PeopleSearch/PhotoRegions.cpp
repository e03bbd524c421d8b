#include "VeilshotCore/Analysis/PeopleSearch/PhotoRegions.h"

#include <numeric>
#include <opencv2/imgproc.hpp>

namespace Veilshot {

namespace {

constexpr int cellSide = 8;
/// The largest step, in any channel, that counts as the texture of a photograph.
constexpr std::uint32_t largestSmallStep = 20;

// Shares of small steps, in 255ths. Rendered text never exceeded 0.17 over 3×3 cells; nearly all faces
// exceed 0.35.
constexpr double photoShareOfNeighbourhood = 0.22 * 255;
constexpr double photoShareOfCell = 0.40 * 255;

// Gradients and the shadows of windows have small steps too, but tiny ones: their mean over 3×3 cells stays
// below 1.3 levels, whereas even a strongly blurred photograph exceeds 1.5 in a third of its cells.
constexpr int texturePerLevel = 32;
constexpr double photoTexture = 1.5 * texturePerLevel;
constexpr double texturedPartOfPhoto = 0.20;

constexpr int fewestCells = 3;
constexpr int shortestSide = 16;
/// A face at the edge of a photograph needs some surroundings to be recognized.
constexpr int margin = cellSide;
/// Rectangles of one photograph overlap by more than this part of the smaller one, …
constexpr double overlapOfOnePhoto = 0.60;
/// … unless less than this part of the larger one is photograph: then it surrounds something else, as a
/// wallpaper does the windows, and the avatars in there have to be looked at more closely than the wallpaper.
constexpr double hollowFill = 0.50;

constexpr int cellsAlong(int pixels) {
    return (pixels + cellSide - 1) / cellSide;
}

/// What distinguishes the cells of a photograph, both CV_8U with one element per cell.
struct CellStatistics {
    cv::Mat smallSteps; ///< share of the steps that are small, in 255ths
    cv::Mat texture;    ///< mean of the small steps over all steps, in 1 / texturePerLevel of a level
};

/// A step counts its height here and one in the upper half, so that one addition serves both sums.
constexpr std::uint32_t oneStep = 1U << 16;

/// Adds to each pixel's sum the step to the pixel in the other row, if it is a small one. The bytes of the
/// two rows are compared all at once, so that compilers turn this into vector instructions.
void addSmallSteps(const uchar* row, const uchar* other, int pixels, uchar* differences,
                   std::uint32_t* sums) {
    for (int i = 0; i < 4 * pixels; ++i)
        differences[i] = std::max(row[i], other[i]) - std::min(row[i], other[i]);
    for (int x = 0; x < pixels; ++x) {
        const std::uint32_t step =
            std::max({differences[4 * x], differences[4 * x + 1], differences[4 * x + 2]});
        sums[x] += step - 1 < largestSmallStep ? oneStep + step : 0;
    }
}

CellStatistics cellStatistics(const QImage& image) {
    const int width = image.width();
    const int height = image.height();
    const cv::Size cells(cellsAlong(width), cellsAlong(height));
    CellStatistics statistics{cv::Mat(cells, CV_8U), cv::Mat(cells, CV_8U)};
    std::vector<uchar> differences(4 * static_cast<std::size_t>(width));
    std::vector<std::uint32_t> sums(width);
    for (int cellY = 0; cellY < cells.height; ++cellY) {
        const int top = cellY * cellSide;
        const int bottom = std::min(top + cellSide, height);
        const int downSteps = std::min(bottom, height - 1) - top;
        std::ranges::fill(sums, 0U);
        for (int y = top; y < bottom; ++y) {
            const uchar* row = image.constScanLine(y);
            addSmallSteps(row, row + 4, width - 1, differences.data(), sums.data());
            if (y + 1 < height)
                addSmallSteps(row, image.constScanLine(y + 1), width, differences.data(), sums.data());
        }
        for (int cellX = 0; cellX < cells.width; ++cellX) {
            const int left = cellX * cellSide;
            const int right = std::min(left + cellSide, width);
            const std::uint32_t sum = std::accumulate(sums.begin() + left, sums.begin() + right, 0U);
            const int rightSteps = std::min(right, width - 1) - left;
            const std::uint32_t steps = std::max(1, rightSteps * (bottom - top) + downSteps * (right - left));
            statistics.smallSteps.at<uchar>(cellY, cellX) = 255 * (sum / oneStep) / steps;
            statistics.texture.at<uchar>(cellY, cellX) =
                std::min(255U, texturePerLevel * (sum % oneStep) / steps);
        }
    }
    return statistics;
}

cv::Mat meanOfNeighbourhood(const cv::Mat& cells) {
    cv::Mat mean;
    cv::blur(cells, mean, {3, 3}, {-1, -1}, cv::BORDER_REPLICATE);
    return mean;
}

const cv::Mat& neighbourhood() {
    static const cv::Mat square = cv::Mat::ones(3, 3, CV_8U);
    return square;
}

/// Cells with many small steps, without those gradients and shadows that surround no texture.
cv::Mat photoCells(const CellStatistics& statistics) {
    cv::Mat smooth = (meanOfNeighbourhood(statistics.smallSteps) > photoShareOfNeighbourhood) |
                     (statistics.smallSteps > photoShareOfCell);
    cv::morphologyEx(smooth, smooth, cv::MORPH_CLOSE, neighbourhood());
    const cv::Mat textured = meanOfNeighbourhood(statistics.texture) > photoTexture;
    cv::Mat aroundTexture;
    cv::dilate(textured, aroundTexture, neighbourhood());

    cv::Mat labels;
    const int count = cv::connectedComponents(smooth, labels);
    std::vector<int> cellCounts(count);
    std::vector<int> texturedCounts(count);
    for (int y = 0; y < labels.rows; ++y) {
        for (int x = 0; x < labels.cols; ++x) {
            ++cellCounts[labels.at<int>(y, x)];
            texturedCounts[labels.at<int>(y, x)] += textured.at<uchar>(y, x) > 0;
        }
    }
    for (int y = 0; y < labels.rows; ++y) {
        for (int x = 0; x < labels.cols; ++x) {
            const int label = labels.at<int>(y, x);
            if (texturedCounts[label] < texturedPartOfPhoto * cellCounts[label])
                smooth.at<uchar>(y, x) &= aroundTexture.at<uchar>(y, x);
        }
    }
    return smooth;
}

struct Region {
    QRect rect;
    double photoArea = 0;
};

double area(const QRect& rect) {
    return static_cast<double>(rect.width()) * rect.height();
}

bool belongToOnePhoto(const Region& a, const Region& b) {
    const QRect common = a.rect & b.rect;
    const Region& larger = area(a.rect) < area(b.rect) ? b : a;
    return !common.isEmpty() && area(common) > overlapOfOnePhoto * std::min(area(a.rect), area(b.rect)) &&
           larger.photoArea >= hollowFill * area(larger.rect);
}

/// One pass from top to bottom; each rectangle meets only those that begin above its bottom edge, because
/// a noisy picture has tens of thousands. Returns whether any two became one.
bool mergeOnce(std::vector<Region>& regions) {
    std::ranges::sort(regions, {},
                      [](const Region& region) { return std::pair(region.rect.y(), region.rect.x()); });
    bool merged = false;
    for (std::size_t i = 0; i < regions.size(); ++i) {
        Region& first = regions[i];
        if (first.rect.isEmpty())
            continue;
        for (std::size_t j = i + 1; j < regions.size() && regions[j].rect.y() <= first.rect.bottom(); ++j) {
            Region& second = regions[j];
            if (second.rect.isEmpty() || !belongToOnePhoto(first, second))
                continue;
            first = {first.rect | second.rect, first.photoArea + second.photoArea};
            second.rect.setHeight(0);
            merged = true;
        }
    }
    std::erase_if(regions, [](const Region& region) { return region.rect.isEmpty(); });
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
        cv::connectedComponentsWithStats(photoCells(cellStatistics(image)), labels, components, centres);
    std::vector<Region> regions;
    for (int i = 1; i < count; ++i) {
        const int* component = components.ptr<int>(i);
        const QRect cells(component[cv::CC_STAT_LEFT], component[cv::CC_STAT_TOP],
                          component[cv::CC_STAT_WIDTH], component[cv::CC_STAT_HEIGHT]);
        const QRect pixels = QRect(cells.topLeft() * cellSide, cells.size() * cellSide) & image.rect();
        if (component[cv::CC_STAT_AREA] >= fewestCells && pixels.width() >= shortestSide &&
            pixels.height() >= shortestSide)
            regions.push_back({pixels.adjusted(-margin, -margin, margin, margin) & image.rect(),
                               static_cast<double>(cellSide * cellSide) * component[cv::CC_STAT_AREA]});
    }
    while (mergeOnce(regions)) {
    }
    std::vector<QRect> rects;
    for (const Region& region : regions)
        rects.push_back(region.rect);
    return rects;
}

} // namespace Veilshot
