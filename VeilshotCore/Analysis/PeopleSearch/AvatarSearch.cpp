#include "VeilshotCore/Analysis/PeopleSearch/AvatarSearch.h"

#include "VeilshotCore/Analysis/PeopleSearch/AreaTones.h"
#include "VeilshotCore/Analysis/PeopleSearch/GreyLevels.h"
#include "VeilshotCore/Analysis/PeopleSearch/OverlappingTiles.h"

#include <array>
#include <opencv2/imgproc.hpp>
#include <tuple>

namespace Veilshot {

namespace {

constexpr int shortestSide = 15;
constexpr int longestSide = 170;
constexpr double narrowestAspect = 0.75;
constexpr double widestAspect = 1.33;
/// Of its box, by the pixels that differ from their neighbours.
constexpr double leastUneven = 0.62;

constexpr int largestSmallStep = 20;
constexpr double leastSkin = 0.25;
constexpr double greyPicture = 0.70;

/// What an avatar stands on, and what then tells its pixels from drawn ones, as shares of them.
struct Ground {
    int tolerance; ///< by how much a flat ground's colour differs from one pixel to the next, at most
    double leastSmallSteps;
    double mostEqualSteps;
    double mostGreyWindow; ///< of the whole box
    double mostOfOneTone;  ///< of what stands out; beyond it is a disc of one colour, with initials perhaps
};

/// Text, too, has textures in a JPEG file, and an avatar's box some of the ground, whose noise belongs to it.
constexpr Ground lossless{0, 0.30, 0.30, 0.40, 0.60};
constexpr Ground jpeg{6, 0.45, 0.25, 0.55, 0.50};
constexpr int noiseLevels = 9;
constexpr int toneLevels = 17;

/// Initials on a disc: steep strokes in the middle of the box, and in all of it few levels beside two tones …
constexpr int middleMarginPart = 5; ///< one such part of the box lies on each side of its middle
constexpr double leastOfTwoTones = 0.71;
constexpr double leastSteepSteps = 0.18;
/// … or more levels, if there are two colours …
constexpr double leastOfTwoBlurredTones = 0.62;
constexpr double leastSpreadOfRed = 14;
constexpr double leastSteepStepsOfColours = 0.10;
/// … or if the tones are far apart.
constexpr double leastSeparation = 0.91;
constexpr double leastSeparationInMiddle = 0.82;
constexpr double leastSteepStepsOfFarTones = 0.25;

/// What stands out from its ground fills at least this part of the box around it. Avatars do, letters do not,
/// although the noise around these in a JPEG file does.
struct Outline {
    int tolerance; ///< the ground's colour differs by so much at most
    double leastFill;
};

constexpr Outline faint{16, 0.54};
constexpr Outline clear{24, 0.50};

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

bool hasAvatarShape(const QRect& box, int pixels, double leastFill) {
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

/// The middle colour around a box.
std::array<uchar, 3> groundAround(const QImage& image, const QRect& box) {
    std::array<uchar, 3> ground{};
    for (std::size_t channel = 0; channel < ground.size(); ++channel) {
        std::vector<uchar> values;
        const auto append = [&](int x, int y) {
            if (image.valid(x, y))
                values.push_back(pixelAt(image, x, y)[channel]);
        };
        for (int x = box.left(); x <= box.right(); ++x) {
            append(x, box.top() - 1);
            append(x, box.bottom() + 1);
        }
        for (int y = box.top(); y <= box.bottom(); ++y) {
            append(box.left() - 1, y);
            append(box.right() + 1, y);
        }
        const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
        std::ranges::nth_element(values, middle);
        ground[channel] = *middle;
    }
    return ground;
}

/// True when what differs from the ground around the box is one shape of many shades.
bool isShadedShape(const QImage& image, const QRect& box, double mostOfOneTone) {
    if (box == image.rect()) // which leaves no ground
        return true;
    const std::array<uchar, 3> colour = groundAround(image, box);
    for (const Outline& outline : {faint, clear}) {
        QRect shape;
        GreyLevels levels;
        for (int y = box.top(); y <= box.bottom(); ++y) {
            const uchar* pixel = pixelAt(image, box.x(), y);
            for (int x = box.left(); x <= box.right(); ++x, pixel += 4) {
                if (sameColour(pixel, colour.data(), outline.tolerance))
                    continue;
                levels.add(GreyLevels::of(pixel));
                shape |= QRect(x, y, 1, 1);
            }
        }
        if (!hasAvatarShape(shape, levels.count(), outline.leastFill) ||
            levels.shareOfFullestWindow(toneLevels) > mostOfOneTone)
            return false;
    }
    return true;
}

bool looksLikeInitials(const AreaTones& middle, const AreaTones& all) {
    const double twoTones = all.levels().shareOfTwoWindows(toneLevels);
    const double steps = middle.steepShare();
    if (twoTones > leastOfTwoTones && steps > leastSteepSteps)
        return true;
    return twoTones > leastOfTwoBlurredTones &&
           ((middle.spreadOfRed() > leastSpreadOfRed && steps > leastSteepStepsOfColours) ||
            (all.levels().separation() > leastSeparation &&
             middle.levels().separation() > leastSeparationInMiddle && steps > leastSteepStepsOfFarTones));
}

bool hasTonesOfPortrait(const QImage& image, const QRect& box, double mostGreyWindow) {
    const int marginX = box.width() / middleMarginPart;
    const int marginY = box.height() / middleMarginPart;
    const AreaTones middle = AreaTones::of(image, box.adjusted(marginX, marginY, -marginX, -marginY));
    const AreaTones all = AreaTones::of(image, box);
    return all.levels().shareOfFullestWindow(noiseLevels) <= mostGreyWindow &&
           !looksLikeInitials(middle, all);
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
        if (hasAvatarShape(box, component[cv::CC_STAT_AREA], leastUneven) &&
            !isCut(box, tile, image.rect()) && looksLikePortrait(image, tile, labels, label, box, ground) &&
            hasTonesOfPortrait(image, box, ground.mostGreyWindow) &&
            isShadedShape(image, box, ground.mostOfOneTone) &&
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
