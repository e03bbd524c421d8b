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

/// The largest part of an area's pixels, 0…1, whose grey levels lie within one window of nine neighbouring
/// levels. Faces are shaded; the drawn surfaces on which JPEG noise looks like faces have one level.
/// `area` is clipped to the image; 1 when hardly any pixel is left. Large areas are sampled.
double greyWindowShare(const QImage& image, const QRect& area);

/// True when an area's grey levels fall into two groups, as those of strokes and their ground do, and either
/// hardly differ within these or change in many steep steps. Large letters in a JPEG file have the outlines
/// of faces, but not their shades. `area` is clipped to the image; large areas are sampled.
bool isTwoToned(const QImage& image, const QRect& area);

} // namespace Veilshot
