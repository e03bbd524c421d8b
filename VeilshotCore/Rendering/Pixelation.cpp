#include "VeilshotCore/Rendering/Pixelation.h"

#include "VeilshotCore/Rendering/RegionRows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

namespace Veilshot {

namespace {

/// The sums of a cell then fit into 64 bits: 2^40 pixels times 255².
constexpr double largestSide = 1 << 20;

/// The cells along one axis of the image.
class CellAxis {
public:
    CellAxis(int pixels, double side) : m_centre(pixels / 2.0), m_side(side) {}

    /// The first pixel, possibly beyond the image, whose centre lies in the cell.
    int firstPixel(int cell) const { return static_cast<int>(std::ceil(m_centre + cell * m_side - 0.5)); }
    int cellOf(int pixel) const {
        int cell = static_cast<int>(std::floor((pixel + 0.5 - m_centre) / m_side));
        // The quotient may be rounded across the edge that firstPixel() puts there.
        while (firstPixel(cell) > pixel)
            --cell;
        while (firstPixel(cell + 1) <= pixel)
            ++cell;
        return cell;
    }

private:
    double m_centre;
    double m_side;
};

/// Pixels of a cell along one axis: those inside the image, and how often the outermost ones count.
struct Extent {
    int first;
    int last;
    std::uint64_t repeatsOfFirst;
    std::uint64_t repeatsOfLast;
    std::uint64_t count;

    Extent(const CellAxis& axis, int cell, int pixels) {
        const int begin = axis.firstPixel(cell);
        const int end = axis.firstPixel(cell + 1);
        first = std::clamp(begin, 0, pixels - 1);
        last = std::clamp(end - 1, 0, pixels - 1);
        count = static_cast<std::uint64_t>(end - begin);
        repeatsOfFirst = static_cast<std::uint64_t>(first - begin);
        repeatsOfLast = static_cast<std::uint64_t>(end - 1 - last);
    }
};

using ColourSum = std::array<std::uint64_t, 4>;

void add(ColourSum& sum, const ColourSum& other, std::uint64_t times) {
    for (int channel = 0; channel < 4; ++channel)
        sum[channel] += times * other[channel];
}

/// The sum of colour·alpha, and of alpha, over a cell's pixels in one row.
ColourSum sumOfRow(const uchar* row, const Extent& columns) {
    const auto pixelSum = [&](int x) -> ColourSum {
        const uchar* pixel = row + 4 * qsizetype(x);
        const std::uint64_t alpha = pixel[3];
        return {pixel[0] * alpha, pixel[1] * alpha, pixel[2] * alpha, alpha};
    };
    ColourSum sum{};
    for (int x = columns.first; x <= columns.last; ++x)
        add(sum, pixelSum(x), 1);
    add(sum, pixelSum(columns.first), columns.repeatsOfFirst);
    add(sum, pixelSum(columns.last), columns.repeatsOfLast);
    return sum;
}

std::array<uchar, 4> averageOf(const ColourSum& sum, std::uint64_t count) {
    const std::uint64_t alpha = (2 * sum[3] + count) / (2 * count);
    if (alpha == 0)
        return {0, 0, 0, 0};
    const auto colour = [&](int channel) {
        return static_cast<uchar>((2 * sum[channel] + sum[3]) / (2 * sum[3]));
    };
    return {colour(0), colour(1), colour(2), static_cast<uchar>(alpha)};
}

std::array<uchar, 4> cellColour(const QImage& source, const Extent& columns, const Extent& rows) {
    ColourSum sum{};
    for (int y = rows.first; y <= rows.last; ++y)
        add(sum, sumOfRow(source.constScanLine(y), columns), 1);
    add(sum, sumOfRow(source.constScanLine(rows.first), columns), rows.repeatsOfFirst);
    add(sum, sumOfRow(source.constScanLine(rows.last), columns), rows.repeatsOfLast);
    return averageOf(sum, columns.count * rows.count);
}

} // namespace

void paintPixelation(const QImage& source, const QRegion& region, double side, PixelRows target) {
    const double cellSide = std::min(side, largestSide);
    const CellAxis horizontal(source.width(), cellSide);
    const CellAxis vertical(source.height(), cellSide);
    const QRegion cells = mapped(region, [&](const QRect& rect) {
        return QRect(QPoint(horizontal.cellOf(rect.left()), vertical.cellOf(rect.top())),
                     QPoint(horizontal.cellOf(rect.right()), vertical.cellOf(rect.bottom())));
    });

    // One row of cells at a time is spread out to a row of pixels, which is then copied to all its rows.
    std::vector<uchar> pattern(4 * std::size_t(source.width()));
    forEachRow(cells, [&](int cellRow, std::span<const QRect> rects) {
        const Extent rows(vertical, cellRow, source.height());
        for (const QRect& rect : rects) {
            for (int cell = rect.left(); cell <= rect.right(); ++cell) {
                const Extent columns(horizontal, cell, source.width());
                const std::array<uchar, 4> colour = cellColour(source, columns, rows);
                for (int x = columns.first; x <= columns.last; ++x)
                    std::memcpy(pattern.data() + 4 * std::size_t(x), colour.data(), 4);
            }
        }
        for (int y = rows.first; y <= rows.last; ++y) {
            for (const QRect& rect : rectsInRow(region, y))
                std::memcpy(target.pixel(rect.left(), y), pattern.data() + 4 * std::size_t(rect.left()),
                            4 * std::size_t(rect.width()));
        }
    });
}

} // namespace Veilshot
