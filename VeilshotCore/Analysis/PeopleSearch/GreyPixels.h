#pragma once

#include <QImage>
#include <QRect>

namespace cv {
class Mat;
}

namespace Veilshot {

/// The grey levels (CV_8U) of an area of a bitmap in Format_RGBA8888, scaled by `scale`; alpha is ignored.
/// `area` is in pixels with a top-left origin and lies inside the image. An area that shrinks is never copied
/// at its full size. Throws cv::Exception or std::bad_alloc when memory runs out.
cv::Mat greyPixels(const QImage& image, const QRect& area, double scale);

} // namespace Veilshot
