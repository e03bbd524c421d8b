#include "VeilshotCore/Analysis/TextRecognition/TextSegments.h"

#include "VeilshotCore/Analysis/AnalysisPool.h"
#include "VeilshotCore/Analysis/TextRecognition/LineGrouping.h"
#include "VeilshotCore/Analysis/TextRecognition/TextInk.h"

#include <QtConcurrent>
#include <algorithm>
#include <array>
#include <opencv2/imgproc.hpp>

namespace Veilshot {

namespace {

/// Text taller than tallestText is looked for in a picture this many times smaller.
constexpr int reduction = 4;

constexpr int leastSegmentHeight = 5;
constexpr int leastSegmentWidth = 3;

/// Tiles overlap by more than the tallest text, so that every line is whole in the tile that holds its
/// centre; they are as wide as several large screens side by side, because a line must not end at an edge.
constexpr int tileWidth = 16'384;
constexpr int tileMargin = 192;
constexpr int leastTileHeight = 512;
constexpr int mostTileHeight = 1024;
constexpr int tileSurface = 8'000'000;

bool canBeLine(const LineGroup& group) {
    const bool icon = group.blobs.size() == 1 && group.box.height > 30 && group.box.width > 30;
    return group.box.height >= leastSegmentHeight && group.box.width >= leastSegmentWidth && !icon;
}

/// The contrast that all but the strongest twentieth of the group's ink stays below: the text's own colour.
int fullContrast(const TextInk& ink, const cv::Rect& box, const std::vector<bool>& isOwn) {
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
QImage drawInk(const TextInk& ink, const LineGroup& group, std::vector<bool>& isOwn) {
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
    const TextInk ink = findTextInk(colours);
    std::vector<bool> isOwn(ink.isSpeck.size());
    std::vector<TextSegment> segments;
    for (const LineGroup& group : groupIntoLines(ink, colours)) {
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
