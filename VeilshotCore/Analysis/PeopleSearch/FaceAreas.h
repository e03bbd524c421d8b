#pragma once

#include <QImage>
#include <QRect>
#include <vector>

namespace Veilshot {

/// The parts of photographs in which a face can be. Text passes for a photograph in a JPEG file, and the
/// search for faces would take seconds on a page of it. So what hardly differs from the page's own plain
/// colours is left out, which is most of a page of text but not of a face; a photograph that differs from
/// them for the greater part remains whole.
///
/// Takes a bitmap in Format_RGBA8888 and rectangles within it, in pixels with a top-left origin; gives such
/// rectangles, which may overlap. Pure; may be called from several threads at once.
std::vector<QRect> faceAreas(const QImage& image, const std::vector<QRect>& photos);

} // namespace Veilshot
