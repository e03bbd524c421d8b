#include "VeilshotCore/Analysis/TextRecognition/ReadingPlacement.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>
#include <optional>

namespace Veilshot {

namespace {

/// A value belongs to the label before it up to this distance, in heights of the label.
constexpr double farthestValue = 16;
constexpr double farthestCertainValue = 40;

constexpr qsizetype longestCell = 48;
constexpr int widestCell = 25; // in heights
constexpr std::size_t fewestCells = 3;
constexpr double farthestRow = 5; // in heights

double middle(const QRect& box) {
    return box.top() + box.height() / 2.0;
}

bool canBeCell(const SegmentReading& reading) {
    return !reading.text.isEmpty() && reading.text.size() <= longestCell &&
           reading.box.width() <= widestCell * reading.box.height();
}

bool areAligned(const QRect& upper, const QRect& lower) {
    const double mostShift = 0.5 * std::min(upper.height(), lower.height());
    return std::abs(upper.left() - lower.left()) <= mostShift ||
           std::abs(upper.right() - lower.right()) <= mostShift ||
           std::abs(upper.center().x() - lower.center().x()) <= mostShift;
}

/// The cell in the next row of the same column, if any.
std::optional<std::size_t> cellBelow(std::size_t cell, const std::vector<SegmentReading>& readings) {
    const QRect& upper = readings[cell].box;
    std::optional<std::size_t> nearest;
    for (std::size_t other = 0; other < readings.size(); ++other) {
        const QRect& lower = readings[other].box;
        const int height = std::max(upper.height(), lower.height());
        const int gap = lower.top() - upper.bottom();
        if (gap > 0 && gap <= farthestRow * height && canBeCell(readings[other]) &&
            areAligned(upper, lower) && (!nearest || lower.top() < readings[*nearest].box.top()))
            nearest = other;
    }
    return nearest;
}

/// Whether the distance is that of one row, or of a few with empty cells between.
bool isRowDistance(double distance, double row) {
    constexpr double tolerance = 0.2;
    const double rows = std::round(distance / row);
    return rows >= 1 && rows <= 3 && std::abs(distance - rows * row) <= tolerance * row;
}

using Column = std::vector<std::size_t>;

/// The runs of equal rows in a stack of aligned cells, each with the cell above it, which may be its header.
std::vector<Column> columnsOfStack(const Column& stack, const std::vector<SegmentReading>& readings) {
    constexpr double tallestHeader = 2.5; // in rows
    std::vector<double> distances;
    for (std::size_t index = 1; index < stack.size(); ++index)
        distances.push_back(middle(readings[stack[index]].box) - middle(readings[stack[index - 1]].box));

    std::vector<Column> columns;
    std::size_t begin = 0;
    while (begin + fewestCells <= stack.size()) {
        const double row = distances[begin];
        std::size_t end = begin + 1;
        while (end < stack.size() && isRowDistance(distances[end - 1], row))
            ++end;
        if (end - begin < fewestCells) {
            ++begin;
            continue;
        }
        const bool hasHeader = begin > 0 && distances[begin - 1] <= tallestHeader * row;
        columns.emplace_back(stack.begin() + static_cast<std::ptrdiff_t>(hasHeader ? begin - 1 : begin),
                             stack.begin() + static_cast<std::ptrdiff_t>(end));
        begin = end;
    }
    return columns;
}

/// At most so far behind it, in heights of the label.
bool isInRowBehind(const SegmentReading& label, const SegmentReading& value, double farthest) {
    const QRect& left = label.box;
    const QRect& right = value.box;
    const int common = std::min(left.bottom(), right.bottom()) - std::max(left.top(), right.top()) + 1;
    const int gap = right.left() - left.right();
    return 2 * common >= std::min(left.height(), right.height()) && gap > 0 &&
           gap <= farthest * left.height();
}

} // namespace

bool isBeside(const SegmentReading& label, const SegmentReading& value) {
    return isInRowBehind(label, value, farthestValue);
}

bool isFarBeside(const SegmentReading& label, const SegmentReading& value) {
    return isInRowBehind(label, value, farthestCertainValue);
}

bool isInFieldBelow(const SegmentReading& label, const SegmentReading& value) {
    constexpr double leastShift = -0.8;
    constexpr double mostShift = 1.8;
    constexpr double widestGap = 2.2;
    const int height = std::max(label.box.height(), value.box.height());
    const int gap = value.box.top() - label.box.bottom();
    const int shift = value.box.left() - label.box.left();
    return gap > 0 && gap <= widestGap * height && shift >= leastShift * height &&
           shift <= mostShift * height;
}

bool isBelow(const SegmentReading& upper, const SegmentReading& lower) {
    constexpr double mostShift = 0.8;
    constexpr double widestGap = 1.4;
    const int height = std::max(upper.box.height(), lower.box.height());
    const int gap = lower.box.top() - upper.box.bottom();
    return gap > 0 && gap <= widestGap * height &&
           std::abs(lower.box.left() - upper.box.left()) <= mostShift * height;
}

std::vector<std::size_t> cellsBelow(std::size_t cell, const std::vector<SegmentReading>& readings) {
    std::vector<std::size_t> cells;
    for (auto next = cellBelow(cell, readings); next; next = cellBelow(*next, readings))
        cells.push_back(*next);
    return cells;
}

std::vector<std::vector<std::size_t>> columnsOf(const std::vector<SegmentReading>& readings) {
    std::vector<std::size_t> order(readings.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::ranges::stable_sort(order, {}, [&](std::size_t index) { return readings[index].box.top(); });

    std::vector<bool> isTaken(readings.size(), false);
    std::vector<std::vector<std::size_t>> columns;
    for (const std::size_t first : order) {
        if (isTaken[first] || !canBeCell(readings[first]))
            continue;
        Column stack{first};
        isTaken[first] = true;
        while (const auto next = cellBelow(stack.back(), readings)) {
            if (isTaken[*next])
                break;
            stack.push_back(*next);
            isTaken[*next] = true;
        }
        std::ranges::move(columnsOfStack(stack, readings), std::back_inserter(columns));
    }
    return columns;
}

} // namespace Veilshot
