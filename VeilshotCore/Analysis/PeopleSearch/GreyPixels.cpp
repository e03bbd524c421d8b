#include "VeilshotCore/Analysis/PeopleSearch/GreyPixels.h"

#include <array>
#include <numeric>
#include <opencv2/imgproc.hpp>

namespace Veilshot {

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
    constexpr int fewestPixels = 50;
    constexpr int mostSamplesPerSide = 512;
    const QRect pixels = area & image.rect();
    const int stepX = 1 + pixels.width() / mostSamplesPerSide;
    const int stepY = 1 + pixels.height() / mostSamplesPerSide;
    std::array<int, 256> counts{};
    int samples = 0;
    for (int y = pixels.top(); y <= pixels.bottom(); y += stepY) {
        const uchar* row = image.constScanLine(y);
        for (int x = pixels.left(); x <= pixels.right(); x += stepX) {
            const uchar* pixel = row + 4 * static_cast<std::ptrdiff_t>(x);
            // The weights of luma in BT.601, in 256ths.
            ++counts[(77 * pixel[0] + 150 * pixel[1] + 29 * pixel[2]) >> 8];
            ++samples;
        }
    }
    if (samples < fewestPixels)
        return 1;
    int inWindow = std::accumulate(counts.begin(), counts.begin() + windowLevels, 0);
    int largest = inWindow;
    for (std::size_t level = windowLevels; level < counts.size(); ++level) {
        inWindow += counts[level] - counts[level - windowLevels];
        largest = std::max(largest, inWindow);
    }
    return static_cast<double>(largest) / samples;
}

} // namespace Veilshot
