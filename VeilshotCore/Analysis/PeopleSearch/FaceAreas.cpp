#include "VeilshotCore/Analysis/PeopleSearch/FaceAreas.h"

#include <array>
#include <cstring>
#include <map>
#include <opencv2/imgproc.hpp>

namespace Veilshot {

namespace {

/// That of the blocks of JPEG files, many of which are exactly plain on a page and few in a photograph.
constexpr int cellSide = 8;
/// As many plain cells of one colour make it a ground of the page. The cheeks of a large face in a coarse
/// JPEG file have plain cells too, but not of one colour.
constexpr int fewestCellsOfGround = 32;
/// For the noise around letters, and less than a dark face differs from a dark ground.
constexpr int groundTolerance = 16;
/// Of four cells that a face may cover, or a part of it. Text leaves more, unless it is large or bold.
constexpr double mostGround = 0.30;
constexpr double leastOfWholePhoto = 0.50;
constexpr int margin = cellSide;

using Colour = std::array<uchar, 4>;

const uchar* pixelAt(const QImage& image, int x, int y) {
    return image.constScanLine(y) + 4 * static_cast<std::ptrdiff_t>(x);
}

QRect pixelsOf(const QRect& cells, const QImage& image) {
    return QRect(cells.topLeft() * cellSide, cells.size() * cellSide) & image.rect();
}

Colour colourAt(const QImage& image, QPoint place) {
    Colour colour;
    std::memcpy(colour.data(), pixelAt(image, place.x(), place.y()), colour.size());
    return colour;
}

bool isPlain(const QImage& image, const QRect& pixels) {
    const uchar* first = pixelAt(image, pixels.x(), pixels.y());
    const std::size_t bytes = 4 * static_cast<std::size_t>(pixels.width());
    if (std::memcmp(first, first + 4, bytes - 4) != 0)
        return false;
    for (int y = pixels.y() + 1; y <= pixels.bottom(); ++y) {
        if (std::memcmp(first, pixelAt(image, pixels.x(), y), bytes) != 0)
            return false;
    }
    return true;
}

/// The page's ground at every cell: the colour of the nearest cell that shows nothing else.
struct Grounds {
    cv::Mat nearest; ///< CV_32S, an index of `colours` for each cell of the image; empty without any ground
    std::vector<Colour> colours;
};

Grounds groundsOf(const QImage& image) {
    cv::Mat others((image.height() + cellSide - 1) / cellSide, (image.width() + cellSide - 1) / cellSide,
                   CV_8U, cv::Scalar(1));
    std::map<Colour, std::vector<cv::Point>> plainCells;
    for (int y = 0; y < others.rows; ++y) {
        for (int x = 0; x < others.cols; ++x) {
            const QRect pixels = pixelsOf(QRect(x, y, 1, 1), image);
            if (isPlain(image, pixels))
                plainCells[colourAt(image, pixels.topLeft())].emplace_back(x, y);
        }
    }
    std::erase_if(plainCells, [](const auto& cells) { return cells.second.size() < fewestCellsOfGround; });
    Grounds grounds;
    if (plainCells.empty())
        return grounds;
    for (const auto& [colour, cells] : plainCells) {
        for (const cv::Point& cell : cells)
            others.at<uchar>(cell) = 0;
    }
    cv::Mat distances;
    cv::distanceTransform(others, distances, grounds.nearest, cv::DIST_L2, cv::DIST_MASK_5,
                          cv::DIST_LABEL_PIXEL);
    grounds.colours.resize(others.total() + 1);
    for (const auto& [colour, cells] : plainCells) {
        for (const cv::Point& cell : cells)
            grounds.colours[grounds.nearest.at<int>(cell)] = colour;
    }
    return grounds;
}

/// The part of a cell's pixels, 0…1, that hardly differ from the ground.
float groundShare(const QImage& image, const QRect& pixels, const Colour& ground) {
    int count = 0;
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
        const uchar* pixel = pixelAt(image, pixels.x(), y);
        for (int x = 0; x < pixels.width(); ++x, pixel += 4)
            count += std::max({std::abs(pixel[0] - ground[0]), std::abs(pixel[1] - ground[1]),
                               std::abs(pixel[2] - ground[2])}) <= groundTolerance;
    }
    return static_cast<float>(count) / static_cast<float>(pixels.width() * pixels.height());
}

/// 255 for the cells that belong to four with little ground.
cv::Mat cellsOffGround(const QImage& image, const Grounds& grounds, const QRect& cells) {
    cv::Mat shares(cells.height(), cells.width(), CV_32F);
    for (int y = 0; y < shares.rows; ++y) {
        for (int x = 0; x < shares.cols; ++x) {
            const QPoint cell = cells.topLeft() + QPoint(x, y);
            shares.at<float>(y, x) =
                groundShare(image, pixelsOf(QRect(cell, QSize(1, 1)), image),
                            grounds.colours[grounds.nearest.at<int>(cell.y(), cell.x())]);
        }
    }
    // The mean over each cell and those to the right and below, which the result goes back to.
    cv::Mat means;
    cv::boxFilter(shares, means, -1, {2, 2}, {0, 0}, true, cv::BORDER_REPLICATE);
    cv::Mat others = means < mostGround;
    cv::dilate(others, others, cv::Mat::ones(2, 2, CV_8U), {1, 1});
    return others;
}

void appendAreas(std::vector<QRect>& areas, const QImage& image, const Grounds& grounds, const QRect& photo) {
    const QRect cells(QPoint(photo.left() / cellSide, photo.top() / cellSide),
                      QPoint(photo.right() / cellSide, photo.bottom() / cellSide));
    cv::Mat others = cellsOffGround(image, grounds, cells);
    if (cv::countNonZero(others) > leastOfWholePhoto * static_cast<double>(others.total())) {
        areas.push_back(photo);
        return;
    }
    cv::morphologyEx(others, others, cv::MORPH_CLOSE, cv::Mat::ones(3, 3, CV_8U));
    cv::Mat labels;
    cv::Mat components;
    cv::Mat centres;
    const int count = cv::connectedComponentsWithStats(others, labels, components, centres);
    for (int i = 1; i < count; ++i) {
        const int* component = components.ptr<int>(i);
        const QRect part(component[cv::CC_STAT_LEFT], component[cv::CC_STAT_TOP],
                         component[cv::CC_STAT_WIDTH], component[cv::CC_STAT_HEIGHT]);
        areas.push_back(
            pixelsOf(part.translated(cells.topLeft()), image).adjusted(-margin, -margin, margin, margin) &
            image.rect());
    }
}

} // namespace

std::vector<QRect> faceAreas(const QImage& image, const std::vector<QRect>& photos) {
    const Grounds grounds = photos.empty() ? Grounds() : groundsOf(image);
    if (grounds.colours.empty())
        return photos;
    std::vector<QRect> areas;
    for (const QRect& photo : photos)
        appendAreas(areas, image, grounds, photo);
    return areas;
}

} // namespace Veilshot
