#include "VeilshotCore/Analysis/TextRecognition/TextSegments.h"

#include "VeilshotCore/Analysis/AnalysisPool.h"
#include "VeilshotCore/Analysis/TextRecognition/BackgroundContrast.h"
#include "VeilshotCore/Analysis/TextRecognition/DisjointSets.h"

#include <QtConcurrent>
#include <algorithm>
#include <array>
#include <numeric>
#include <opencv2/imgproc.hpp>
#include <optional>

namespace Veilshot {

namespace {

/// Pixels that stand out less belong to the fringes of letters or to separators that nobody reads.
constexpr int inkThreshold = 40;

/// Text taller than this is looked for in a picture this many times smaller.
constexpr int tallestText = 160;
constexpr int reduction = 4;

/// A straight stroke this long and no thicker is a rule, an underline, a frame, or strikes text out. No
/// letter has one.
constexpr int leastStrokeLength = 81;
constexpr int mostStrokeThickness = 4;

constexpr int leastSegmentHeight = 5;
constexpr int leastSegmentWidth = 3;

/// Tiles overlap by more than the tallest text, so that every line is whole in the tile that holds its
/// centre; they are as wide as several large screens side by side, because a line must not end at an edge.
constexpr int tileWidth = 16'384;
constexpr int tileMargin = 192;
constexpr int leastTileHeight = 512;
constexpr int mostTileHeight = 1024;
constexpr int tileSurface = 8'000'000;

/// Boxes are indexed by bands of this many rows.
constexpr int bandHeight = 32;

/// A connected piece of ink: a letter, a part of one, or several touching letters.
struct Blob {
    cv::Rect box;
    int label = 0;
};

struct Ink {
    cv::Mat contrast; ///< CV_8U
    cv::Mat labels;   ///< CV_32S, 0 where there is no ink
    std::vector<Blob> blobs;
    /// By label: ink that no segment owns but that may be drawn with any, such as the dot of a full stop.
    std::vector<bool> isSpeck;
};

using BlobIndices = std::vector<int>;

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

/// What is left of a frame when its long sides are taken away: it ends at one of them above and below.
bool isSideOfFrame(const cv::Mat& strokes, const cv::Rect& box, double fill) {
    constexpr int reach = 2;
    if (box.width > mostStrokeThickness && fill > 0.35)
        return false;
    const cv::Rect picture(0, 0, strokes.cols, strokes.rows);
    const cv::Rect above = cv::Rect(box.x - reach, box.y - reach, box.width + 2 * reach, reach) & picture;
    const cv::Rect below = cv::Rect(box.x - reach, box.br().y, box.width + 2 * reach, reach) & picture;
    return cv::countNonZero(strokes(above)) > 0 && cv::countNonZero(strokes(below)) > 0;
}

/// How far apart two pieces of one line may be, as a multiple of the taller one's height, and how much of the
/// shorter one's height they must share.
struct Adjacency {
    double gap;
    double overlap;
};

bool areAdjacent(const cv::Rect& left, const cv::Rect& right, const Adjacency& adjacency) {
    const int shorter = std::min(left.height, right.height);
    const int taller = std::max(left.height, right.height);
    const int common = std::min(left.br().y, right.br().y) - std::max(left.y, right.y);
    if (common < adjacency.overlap * shorter)
        return false;
    const int gap = right.x - left.br().x;
    // A heading beside small print is not one line with it; a dash beside a capital is, and so is an accent
    // above.
    if (gap > 0 && taller > 3.2 * shorter && taller > 30 && shorter > 4)
        return false;
    return gap <= adjacency.gap * std::min(taller, 60);
}

/// Calls `join` for every pair of adjacent boxes.
template<typename Join>
void forAdjacentPairs(const std::vector<cv::Rect>& boxes, int rows, const Adjacency& adjacency, Join join) {
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

Ink findInk(const cv::Mat& colours) {
    Ink ink;
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

/// The blobs of one line and the box around them.
struct Group {
    BlobIndices blobs;
    cv::Rect box;
};

std::vector<Group> groupsOf(DisjointSets& sets, const std::vector<Blob>& blobs) {
    std::vector<Group> groups;
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
    GroupBands(const std::vector<Group>& groups, int rows) : m_bands(rows / bandHeight + 1) {
        for (const Group& group : groups) {
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
            for (const Group* group : m_bands[band])
                visit(*group);
        }
    }

private:
    std::vector<std::vector<const Group*>> m_bands;
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
void attachMarks(const std::vector<Group>& groups, int rows, DisjointSets& sets) {
    constexpr int widestMark = 40;
    constexpr int tallestMark = 20;
    const GroupBands bands(groups, rows);
    for (const Group& mark : groups) {
        if (mark.box.height > tallestMark || mark.box.width > widestMark)
            continue;
        const Group* nearest = nullptr;
        int nearestDistance = INT_MAX;
        bands.forNeighbours(mark.box, [&](const Group& base) {
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

std::vector<Group> groupIntoLines(const Ink& ink, const cv::Mat& colours) {
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
        const std::vector<Group> groups = groupsOf(sets, ink.blobs);
        boxes.clear();
        for (const Group& group : groups)
            boxes.push_back(group.box);
        forAdjacentPairs(boxes, ink.contrast.rows, adjacency, [&](int left, int right) {
            if (!isDivided(colours, boxes[left], boxes[right]))
                sets.join(groups[left].blobs.front(), groups[right].blobs.front());
        });
        attachMarks(groupsOf(sets, ink.blobs), ink.contrast.rows, sets);
    }
    return groupsOf(sets, ink.blobs);
}

bool canBeLine(const Group& group) {
    const bool icon = group.blobs.size() == 1 && group.box.height > 30 && group.box.width > 30;
    return group.box.height >= leastSegmentHeight && group.box.width >= leastSegmentWidth && !icon;
}

/// The contrast that all but the strongest twentieth of the group's ink stays below: the text's own colour.
int fullContrast(const Ink& ink, const cv::Rect& box, const std::vector<bool>& isOwn) {
    constexpr int leastContrast = 30;
    std::array<int, 256> histogram{};
    int total = 0;
    for (int y = box.y; y < box.br().y; ++y) {
        const int* labels = ink.labels.ptr<int>(y);
        const uchar* contrast = ink.contrast.ptr(y);
        for (int x = box.x; x < box.br().x; ++x) {
            if (isOwn[labels[x]]) {
                ++histogram[contrast[x]];
                ++total;
            }
        }
    }
    int above = 0;
    for (int value = 255; value > leastContrast; --value) {
        above += histogram[value];
        if (above * 20 > total)
            return value;
    }
    return leastContrast;
}

/// `isOwn` is scratch space by label, all false before and after.
QImage drawInk(const Ink& ink, const Group& group, std::vector<bool>& isOwn) {
    for (const int blob : group.blobs)
        isOwn[ink.blobs[blob].label] = true;
    const double gain = 255.0 / fullContrast(ink, group.box, isOwn);
    QImage image(group.box.width, group.box.height, QImage::Format_Grayscale8);
    for (int y = 0; y < group.box.height; ++y) {
        const int* labels = ink.labels.ptr<int>(group.box.y + y) + group.box.x;
        const uchar* contrast = ink.contrast.ptr(group.box.y + y) + group.box.x;
        uchar* out = image.scanLine(y);
        for (int x = 0; x < group.box.width; ++x) {
            const bool drawn = labels[x] == 0 || isOwn[labels[x]] || ink.isSpeck[labels[x]];
            out[x] = drawn ? static_cast<uchar>(255 - std::min(255.0, contrast[x] * gain)) : 255;
        }
    }
    for (const int blob : group.blobs)
        isOwn[ink.blobs[blob].label] = false;
    return image;
}

/// Over black or white, whichever the visible pixels stand out from.
cv::Mat opaqueColours(const QImage& image, const QRect& area) {
    cv::Mat colours(area.height(), area.width(), CV_8UC3);
    qint64 weightedBrightness = 0;
    qint64 weight = 0;
    for (int y = 0; y < area.height(); ++y) {
        const uchar* pixel = image.constScanLine(area.y() + y) + 4 * static_cast<qsizetype>(area.x());
        for (int x = 0; x < area.width(); ++x, pixel += 4) {
            weightedBrightness += static_cast<qint64>(pixel[1]) * pixel[3];
            weight += pixel[3];
        }
    }
    const bool isOpaque = weight == 255LL * area.width() * area.height();
    const int behind = !isOpaque && weightedBrightness > 160 * weight ? 0 : 255;
    for (int y = 0; y < area.height(); ++y) {
        const uchar* pixel = image.constScanLine(area.y() + y) + 4 * static_cast<qsizetype>(area.x());
        auto* out = colours.ptr<cv::Vec3b>(y);
        for (int x = 0; x < area.width(); ++x, pixel += 4) {
            for (int channel = 0; channel < 3; ++channel)
                out[x][channel] =
                    static_cast<uchar>((pixel[channel] * pixel[3] + behind * (255 - pixel[3]) + 127) / 255);
        }
    }
    return colours;
}

struct Tile {
    QRect core;
    QRect area; ///< the core and its margins
};

std::vector<Tile> tilesOf(const QRect& image) {
    const int tileHeight = std::clamp(tileSurface / image.width(), leastTileHeight, mostTileHeight);
    std::vector<Tile> tiles;
    for (int y = 0; y < image.height(); y += tileHeight) {
        for (int x = 0; x < image.width(); x += tileWidth) {
            const QRect core = QRect(x, y, tileWidth, tileHeight) & image;
            const QRect area = core.adjusted(-tileMargin, -tileMargin, tileMargin, tileMargin) & image;
            tiles.push_back({core, area});
        }
    }
    return tiles;
}

std::vector<TextSegment> segmentsOfTile(const QImage& image, const Tile& tile) {
    const cv::Mat colours = opaqueColours(image, tile.area);
    const Ink ink = findInk(colours);
    std::vector<bool> isOwn(ink.isSpeck.size());
    std::vector<TextSegment> segments;
    for (const Group& group : groupIntoLines(ink, colours)) {
        const QRect box = QRect(group.box.x, group.box.y, group.box.width, group.box.height)
                              .translated(tile.area.topLeft());
        if (canBeLine(group) && tile.core.contains(box.center()))
            segments.push_back({box, drawInk(ink, group, isOwn)});
    }
    return segments;
}

std::vector<TextSegment> segmentsOf(const QImage& image, const CancellationCheck& isCancelled) {
    const auto tiles = QtConcurrent::blockingMapped<std::vector<std::vector<TextSegment>>>(
        &analysisPool(), tilesOf(image.rect()), [&](const Tile& tile) {
            return isCancelled() ? std::vector<TextSegment>() : segmentsOfTile(image, tile);
        });
    std::vector<TextSegment> segments;
    for (const std::vector<TextSegment>& tile : tiles)
        segments.insert(segments.end(), tile.begin(), tile.end());
    return segments;
}

/// Text too tall for the picture as it is, found in a smaller one.
std::vector<TextSegment> tallSegmentsOf(const QImage& image, const CancellationCheck& isCancelled) {
    if (image.height() <= tallestText)
        return {};
    const QSize size = (image.size() / reduction).expandedTo({1, 1});
    const QImage reduced = image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                               .convertedTo(QImage::Format_RGBA8888);
    std::vector<TextSegment> segments = segmentsOf(reduced, isCancelled);
    std::erase_if(segments,
                  [](const TextSegment& segment) { return segment.box.height() * reduction <= tallestText; });
    const double scaleX = static_cast<double>(image.width()) / size.width();
    const double scaleY = static_cast<double>(image.height()) / size.height();
    for (TextSegment& segment : segments) {
        const QRect& box = segment.box;
        segment.box = QRectF(box.x() * scaleX, box.y() * scaleY, box.width() * scaleX, box.height() * scaleY)
                          .toAlignedRect() &
                      image.rect();
        segment.ink = segment.ink.scaled(segment.box.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                          .convertedTo(QImage::Format_Grayscale8);
    }
    return segments;
}

} // namespace

std::vector<TextSegment> findTextSegments(const QImage& image, const CancellationCheck& isCancelled) {
    if (image.isNull())
        return {};
    std::vector<TextSegment> segments = segmentsOf(image, isCancelled);
    std::ranges::move(tallSegmentsOf(image, isCancelled), std::back_inserter(segments));
    std::ranges::stable_sort(segments, {}, [](const TextSegment& segment) {
        return std::pair(segment.box.center().y(), segment.box.x());
    });
    return segments;
}

} // namespace Veilshot
