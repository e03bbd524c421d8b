#pragma once

#include <QtGlobal>

namespace Veilshot {

/// Writable pixels that belong to somebody else: four bytes each (red, green, blue, straight alpha),
/// rows from top to bottom.
struct PixelRows {
    uchar* firstRow = nullptr;
    qsizetype bytesPerRow = 0;

    uchar* row(int y) const { return firstRow + y * bytesPerRow; }
    uchar* pixel(int x, int y) const { return row(y) + 4 * qsizetype(x); }
};

} // namespace Veilshot
