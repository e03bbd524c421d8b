#include "VeilshotCore/Analysis/PeopleSearch/AvatarSearch.h"

#include "VeilshotCore/Analysis/PeopleSearch/GreyPixels.h"
#include "VeilshotCore/Analysis/PeopleSearch/OverlappingTiles.h"

#include <opencv2/imgproc.hpp>
#include <tuple>

namespace Veilshot {

namespace {

constexpr int shortestSide = 15;
constexpr int longestSide = 170;
constexpr double narrowestAspect = 0.75;
constexpr double widestAspect = 1.33;
constexpr double leastFill = 0.62;

constexpr int largestSmallStep = 20;
constexpr double leastSkin = 0.25;
constexpr double greyPicture = 0.70;
constexpr double mostGreyWindow = 0.40;

/// What an avatar stands on, and what then tells its pixels from text: shares of its small and of its equal
/// steps.
struct Ground {
    int tolerance; ///< by how much a flat ground's colour differs from one pixel to the next, at most
    double leastSmallSteps;
    double mostEqualSteps;
};

/// Text, too, has textures in a JPEG file.
constexpr Ground lossless{0, 0.30, 0.30};
constexpr Ground jpeg{6, 0.56, 0.15};

constexpr int tileSide = 1024;
/// A whole avatar and one flat pixel on each side.
constexpr int tileOverlap = longestSide + 2;

const uchar* pixelAt(const QImage& image, int x, int y) {
    return image.constScanLine(y) + 4 * static_cast<std::ptrdiff_t>(x);
}

bool sameColour(const uchar* a, const uchar* b, int tolerance) {
    return std::max({std::abs(a[0] - b[0]), std::abs(a[1] - b[1]), std::abs(a[2] - b[2])}) <= tolerance;
}

/// 1 for every pixel that differs from one of its four neighbours by more than the tolerance, 0 on flat
/// ground.
cv::Mat unevenPixels(const QImage& image, const QRect& tile, int tolerance) {
    cv::Mat uneven = cv::Mat::zeros(tile.height(), tile.width(), CV_8U);
    for (int y = 0; y < uneven.rows; ++y) {
        const uchar* row = pixelAt(image, tile.x(), tile.y() + y);
        uchar* marks = uneven.ptr(y);
        for (int x = 0; x + 1 < uneven.cols; ++x) {
            if (!sameColour(row + 4 * x, row + 4 * x + 4, tolerance))
                marks[x] = marks[x + 1] = 1;
        }
        if (y + 1 == uneven.rows)
            break;
        const uchar* below = pixelAt(image, tile.x(), tile.y() + y + 1);
        uchar* marksBelow = uneven.ptr(y + 1);
        for (int x = 0; x < uneven.cols; ++x) {
            if (!sameColour(row + 4 * x, below + 4 * x, tolerance))
                marks[x] = marksBelow[x] = 1;
        }
    }
    return uneven;
}

bool hasAvatarShape(const QRect& box, int pixels) {
    const double aspect = static_cast<double>(box.width()) / box.height();
    return std::min(box.width(), box.height()) >= shortestSide &&
           std::max(box.width(), box.height()) <= longestSide && aspect >= narrowestAspect &&
           aspect <= widestAspect && pixels >= leastFill * box.width() * box.height();
}

bool isCut(const QRect& box, const QRect& tile, const QRect& image) {
    return (box.left() == tile.left() && tile.left() > image.left()) ||
           (box.top() == tile.top() && tile.top() > image.top()) ||
           (box.right() == tile.right() && tile.right() < image.right()) ||
           (box.bottom() == tile.bottom() && tile.bottom() < image.bottom());
}

/// Texture and colours of the pixels with one label.
bool looksLikePortrait(const QImage& image, const QRect& tile, const cv::Mat& labels, int label,
                       const QRect& box, const Ground& ground) {
    int pixels = 0;
    int smallSteps = 0;
    int equalSteps = 0;
    int skin = 0;
    int grey = 0;
    const QRect inner = box & image.rect().adjusted(0, 0, -1, 0);
    for (int y = inner.top(); y <= inner.bottom(); ++y) {
        const int* rowLabels = labels.ptr<int>(y - tile.y());
        const uchar* pixel = pixelAt(image, inner.x(), y);
        for (int x = inner.left(); x <= inner.right(); ++x, pixel += 4) {
            if (rowLabels[x - tile.x()] != label)
                continue;
            ++pixels;
            const int step = std::max({std::abs(pixel[0] - pixel[4]), std::abs(pixel[1] - pixel[5]),
                                       std::abs(pixel[2] - pixel[6])});
            equalSteps += step == 0;
            smallSteps += step > 0 && step <= largestSmallStep;
            // Chroma as in BT.601, around zero; the range of skin is the customary one.
            const double luma = 0.299 * pixel[0] + 0.587 * pixel[1] + 0.114 * pixel[2];
            const double red = (pixel[0] - luma) * 0.713;
            const double blue = (pixel[2] - luma) * 0.564;
            skin += red >= 5 && red <= 50 && blue >= -51 && blue <= 2;
            grey += std::abs(red) < 6 && std::abs(blue) < 6;
        }
    }
    return pixels > 0 && smallSteps >= ground.leastSmallSteps * pixels &&
           equalSteps <= ground.mostEqualSteps * pixels &&
           (skin >= leastSkin * pixels || grey > greyPicture * pixels);
}

void appendAvatars(std::vector<QRect>& avatars, const QImage& image, const QRect& tile,
                   const Ground& ground) {
    cv::Mat labels;
    cv::Mat components;
    cv::Mat centres;
    const int count = cv::connectedComponentsWithStats(unevenPixels(image, tile, ground.tolerance), labels,
                                                       components, centres, 4);
    for (int label = 1; label < count; ++label) {
        const int* component = components.ptr<int>(label);
        const QRect box(tile.x() + component[cv::CC_STAT_LEFT], tile.y() + component[cv::CC_STAT_TOP],
                        component[cv::CC_STAT_WIDTH], component[cv::CC_STAT_HEIGHT]);
        if (hasAvatarShape(box, component[cv::CC_STAT_AREA]) && !isCut(box, tile, image.rect()) &&
            looksLikePortrait(image, tile, labels, label, box, ground) &&
            greyWindowShare(image, box) <= mostGreyWindow &&
            std::ranges::none_of(avatars, [&](const QRect& avatar) { return avatar.intersects(box); }))
            avatars.push_back(box);
    }
}

} // namespace

std::vector<QRect> findAvatars(const QImage& image, const QRect& area) {
    std::vector<QRect> avatars;
    for (const QRect& tile : overlappingTiles(area & image.rect(), tileSide, tileOverlap)) {
        for (const Ground& ground : {lossless, jpeg})
            appendAvatars(avatars, image, tile, ground);
    }
    const auto place = [](const QRect& box) { return std::tuple(box.y(), box.x()); };
    std::ranges::sort(avatars, {}, place);
    const auto repeated = std::ranges::unique(avatars);
    avatars.erase(repeated.begin(), repeated.end());
    return avatars;
}

} // namespace Veilshot
