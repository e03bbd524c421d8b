#include "VeilshotCore/Analysis/PeopleSearch/GreyPixels.h"

#include "VeilshotCore/Analysis/PeopleSearch/GreyLevels.h"

#include <opencv2/imgproc.hpp>

namespace Veilshot {

namespace {

constexpr int fewestPixels = 50;

struct GreySamples {
    GreyLevels levels;
    int steps = 0; ///< to the right and down
    int steepSteps = 0;
};

GreySamples greySamples(const QImage& image, const QRect& area) {
    constexpr int mostSamplesPerSide = 512;
    constexpr int steepStep = 30;
    const QRect pixels = area & image.rect();
    const int strideX = 1 + pixels.width() / mostSamplesPerSide;
    const int strideY = 1 + pixels.height() / mostSamplesPerSide;
    GreySamples samples;
    for (int y = pixels.top(); y <= pixels.bottom(); y += strideY) {
        for (int x = pixels.left(); x <= pixels.right(); x += strideX) {
            const uchar* pixel = image.constScanLine(y) + 4 * static_cast<std::ptrdiff_t>(x);
            const int level = GreyLevels::of(pixel);
            samples.levels.add(level);
            if (x == pixels.right() || y == pixels.bottom())
                continue;
            for (const uchar* next : {pixel + 4, pixel + image.bytesPerLine()}) {
                ++samples.steps;
                samples.steepSteps += std::abs(GreyLevels::of(next) - level) > steepStep;
            }
        }
    }
    return samples;
}

} // namespace

cv::Mat greyPixels(const QImage& image, const QRect& area, double scale) {
    // OpenCV has no view of constant memory; nothing below writes to it.
    const cv::Mat view(image.height(), image.width(), CV_8UC4, const_cast<uchar*>(image.constBits()),
                       static_cast<std::size_t>(image.bytesPerLine()));
    const cv::Mat source = view(cv::Rect(area.x(), area.y(), area.width(), area.height()));
    const cv::Size size(std::max(1, static_cast<int>(std::lround(area.width() * scale))),
                        std::max(1, static_cast<int>(std::lround(area.height() * scale))));
    cv::Mat scaled;
    cv::Mat grey;
    if (scale < 1) {
        cv::resize(source, scaled, size, 0, 0, cv::INTER_AREA);
        cv::cvtColor(scaled, grey, cv::COLOR_RGBA2GRAY);
        return grey;
    }
    cv::cvtColor(source, grey, cv::COLOR_RGBA2GRAY);
    if (scale == 1)
        return grey;
    cv::resize(grey, scaled, size, 0, 0, cv::INTER_CUBIC);
    return scaled;
}

double greyWindowShare(const QImage& image, const QRect& area) {
    constexpr int windowLevels = 9;
    const GreyLevels levels = greySamples(image, area).levels;
    return levels.count() < fewestPixels ? 1 : levels.shareOfFullestWindow(windowLevels);
}

bool isTwoToned(const QImage& image, const QRect& area) {
    constexpr double leastSeparation = 0.83;
    constexpr double leastSteepSteps = 0.25;
    constexpr int windowLevels = 17;
    constexpr double leastInWindows = 0.80;
    const GreySamples samples = greySamples(image, area);
    return samples.levels.count() >= fewestPixels && samples.levels.separation() > leastSeparation &&
           (samples.steepSteps > leastSteepSteps * samples.steps ||
            samples.levels.shareOfTwoWindows(windowLevels) > leastInWindows);
}

} // namespace Veilshot
