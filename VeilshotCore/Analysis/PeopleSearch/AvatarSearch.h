#pragma once

#include <QImage>
#include <QRect>
#include <vector>

namespace Veilshot {

/// The pictures in a part of a screen that look like avatars: square or round, of 15 to 170 pixels, alone on
/// a flat background, textured like a photograph, and with skin or in shades of grey. Faces of fewer
/// than about 16 pixels are too small for any detector; their place in an interface gives them away.
///
/// Takes a bitmap in Format_RGBA8888; `area` and the result are in pixels with a top-left origin. An avatar
/// cut by the area's border is left out unless the image itself ends there. Large areas are worked through in
/// tiles, so that memory stays at ten megabytes. May throw cv::Exception or std::bad_alloc.
std::vector<QRect> findAvatars(const QImage& image, const QRect& area);

} // namespace Veilshot
