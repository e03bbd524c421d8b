#include "VeilshotCore/Analysis/PeopleSearch/GreyPixels.h"

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

} // namespace Veilshot
