#pragma once

#include <QImage>
#include <QSize>

namespace Veilshot {

inline constexpr QSize largeScreenshotSize(5120, 2880);

/// Lines of dark strokes, about the size of letters, on light panels, in Format_RGBA8888.
const QImage& largeScreenshot();

} // namespace Veilshot
