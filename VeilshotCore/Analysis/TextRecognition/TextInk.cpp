#include "VeilshotCore/Analysis/TextRecognition/TextInk.h"

#include "VeilshotCore/Analysis/TextRecognition/BackgroundContrast.h"
#include "VeilshotCore/Analysis/TextRecognition/BoxAdjacency.h"

#include <algorithm>
#include <iterator>
#include <opencv2/imgproc.hpp>

namespace Veilshot {

namespace {

/// Pixels that stand out less belong to the fringes of letters or to separators that nobody reads.
constexpr int inkThreshold = 40;

/// A straight stroke this long and no thicker is a rule, an underline, a frame, or strikes text out. No
/// letter has one.
constexpr int leastStrokeLength = 81;
constexpr int mostStrokeThickness = 4;

bool isRule(const cv::Rect& box) {
    const bool horizontal = box.height <= 3 && box.width >= 25 && box.width > 12 * box.height;
    const bool vertical = box.width <= 3 && box.height >= 50;
    return horizontal || vertical;
}

/// The pixels of a blob together with those that it encloses.
int surfaceWithHoles(const cv::Mat& labels, int label, const cv::Rect& box) {
    cv::Mat outside(box.height + 2, box.width + 2, CV_8U, cv::Scalar(1));
    cv::Mat inner = outside(cv::Rect(1, 1, box.width, box.height));
    inner.setTo(0, labels(box) == label);
    cv::floodFill(outside, cv::Point(0, 0), 2);
    return static_cast<int>(inner.total()) - cv::countNonZero(inner == 2);
}

enum class Shape {
    letter,
    solid, ///< perhaps a bold letter or a tall "l"; or an avatar, an icon, the bar beside a quotation
    box,   ///< a button, an empty cell
};

/// Avatars, icons and buttons are filled but for what is written on them. A letter of that size is filled
/// less, unless it is a heavy one, and none fills its box like a pill.
Shape shapeOf(const cv::Mat& labels, int label, const cv::Rect& box, double fill) {
    constexpr double leastFillOfShape = 0.72;
    constexpr double leastFillOfBox = 0.93;
    const bool isBar = box.height >= 28 && 5 * box.width <= box.height;
    if (isBar)
        return Shape::solid;
    if (box.height < 18 || box.width < 18 || fill <= 0.6)
        return Shape::letter;
    const double whole = static_cast<double>(surfaceWithHoles(labels, label, box)) / box.area();
    return whole > leastFillOfBox ? Shape::box : whole > leastFillOfShape ? Shape::solid : Shape::letter;
}

/// The frame of a field or the curved edge of a bubble: a thin stroke around much emptiness.
bool isOutline(const cv::Rect& box, int surface, double fill) {
    const bool frame = box.width > 40 && box.height > 24 && fill < 0.12;
    const bool bracket = box.height >= 30 && surface <= 2.2 * std::max(box.width, box.height);
    return frame || bracket;
}

bool canBeText(const cv::Rect& box, int surface, double fill) {
    return box.height <= tallestText && !isRule(box) && !isOutline(box, surface, fill);
}

/// The long thin strokes of one direction without the places where a letter crosses them, 255 where there is
/// one. `along` is the direction as a unit size: {1, 0} or {0, 1}.
cv::Mat longStrokes(const cv::Mat& ink, cv::Size along) {
    const auto rectangle = [](cv::Size size) { return cv::getStructuringElement(cv::MORPH_RECT, size); };
    const cv::Size across(along.height, along.width);
    const cv::Size length(1 + along.width * (leastStrokeLength - 1),
                          1 + along.height * (leastStrokeLength - 1));
    const cv::Size thickness(1 + across.width * mostStrokeThickness, 1 + across.height * mostStrokeThickness);
    cv::Mat strokes;
    cv::Mat thick;
    cv::Mat bridged;
    cv::morphologyEx(ink, strokes, cv::MORPH_OPEN, rectangle(length));
    cv::morphologyEx(strokes, thick, cv::MORPH_OPEN, rectangle(thickness));
    strokes &= ~thick;
    cv::morphologyEx(ink & ~strokes, bridged, cv::MORPH_CLOSE, rectangle(thickness));
    return strokes & ~bridged;
}

/// What is left of a frame when its long sides are taken away: it ends at one of them above and below. The
/// side of a field ends where its faint rounded corners begin.
bool isSideOfFrame(const cv::Mat& strokes, const cv::Rect& box, double fill) {
    if (box.width > mostStrokeThickness && fill > 0.35)
        return false;
    constexpr int largestCorner = 8;
    const int reach = box.height >= 12 * box.width ? largestCorner : 2;
    const cv::Rect picture(0, 0, strokes.cols, strokes.rows);
    const cv::Size end(box.width + 2 * reach, reach);
    const cv::Rect above = cv::Rect({box.x - reach, box.y - reach}, end) & picture;
    const cv::Rect below = cv::Rect({box.x - reach, box.br().y}, end) & picture;
    return cv::countNonZero(strokes(above)) > 0 && cv::countNonZero(strokes(below)) > 0;
}

/// Those of the solid shapes that are letters: they stand close beside others of their size.
std::vector<Blob> withNeighbours(const std::vector<Blob>& shapes, const std::vector<Blob>& blobs, int rows) {
    constexpr Adjacency withinWord{0.4, 0.5};
    constexpr double leastShareOfHeight = 0.55;
    std::vector<cv::Rect> boxes;
    for (const std::vector<Blob>* list : {&shapes, &blobs}) {
        for (const Blob& blob : *list)
            boxes.push_back(blob.box);
    }
    std::vector<bool> isLetter(boxes.size(), false);
    forAdjacentPairs(boxes, rows, withinWord, [&](int left, int right) {
        const auto [shorter, taller] = std::minmax(boxes[left].height, boxes[right].height);
        const bool areNested = boxes[right].br().x <= boxes[left].br().x;
        if (!areNested && shorter >= leastShareOfHeight * taller)
            isLetter[left] = isLetter[right] = true;
    });
    std::vector<Blob> letters;
    for (std::size_t index = 0; index < shapes.size(); ++index) {
        if (isLetter[index])
            letters.push_back(shapes[index]);
    }
    return letters;
}

} // namespace

TextInk findTextInk(const cv::Mat& colours) {
    TextInk ink;
    ink.contrast = backgroundContrast(colours);
    // Out of the ink first, so that an underline does not tie the letters that it touches into one shape.
    const cv::Mat mask = ink.contrast >= inkThreshold;
    const cv::Mat strokes = longStrokes(mask, {1, 0}) | longStrokes(mask, {0, 1});
    ink.contrast.setTo(0, strokes);
    cv::Mat stats;
    cv::Mat centroids;
    const int count = cv::connectedComponentsWithStats(mask & ~strokes, ink.labels, stats, centroids, 8);
    ink.isSpeck.assign(count, false);
    std::vector<Blob> solids;
    for (int label = 1; label < count; ++label) {
        const int* stat = stats.ptr<int>(label);
        const cv::Rect box(stat[cv::CC_STAT_LEFT], stat[cv::CC_STAT_TOP], stat[cv::CC_STAT_WIDTH],
                           stat[cv::CC_STAT_HEIGHT]);
        const int surface = stat[cv::CC_STAT_AREA];
        const double fill = surface / (static_cast<double>(box.width) * box.height);
        ink.isSpeck[label] = surface < 3 && box.width < 3 && box.height < 3;
        if (!canBeText(box, surface, fill) || isSideOfFrame(strokes, box, fill))
            continue;
        const Shape shape = shapeOf(ink.labels, label, box, fill);
        if (shape == Shape::letter)
            ink.blobs.push_back({box, label});
        else if (shape == Shape::solid)
            solids.push_back({box, label});
    }
    std::ranges::copy(withNeighbours(solids, ink.blobs, ink.contrast.rows), std::back_inserter(ink.blobs));
    return ink;
}

} // namespace Veilshot
