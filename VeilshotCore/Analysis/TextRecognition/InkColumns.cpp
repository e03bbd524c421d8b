#include "VeilshotCore/Analysis/TextRecognition/InkColumns.h"

#include <algorithm>
#include <cmath>

namespace Veilshot {

namespace {

/// Fainter pixels are the fringes of letters.
constexpr int inkLevel = 160;

} // namespace

InkColumns::InkColumns(const QImage& ink)
    : m_ink(ink), m_lowest(static_cast<int>(ink.height() * 0.7)), m_isBlank(ink.width()) {
    for (int x = 0; x < ink.width(); ++x)
        m_isBlank[x] = !hasInk(x);
    const int letterEnd = baseline();
    for (int x = 0; x < ink.width(); ++x) {
        ColumnRun run{x, x};
        while (run.end < ink.width() && isLowStroke(run.end))
            ++run.end;
        if (run.width() == 0)
            continue;
        const bool goesOnLeft = carriesOn(run.begin, run.begin - 1);
        const bool goesOnRight = carriesOn(run.end - 1, run.end);
        const bool isWide =
            run.width() >= std::max(3.0, 0.3 * ink.height()) && run.width() <= 2.5 * ink.height();
        const RowRun rows = inkRows(run.begin, run.end);
        const bool isFlat = run.width() >= 2 * (rows.end - rows.begin); // a full stop is as high as wide
        const bool isBelow = rows.begin > letterEnd; // the hook of a "J" drawn without grey is not
        if (!goesOnLeft && !goesOnRight && isWide && isFlat && isBelow)
            m_underscores.push_back(run);
        else if (goesOnLeft && goesOnRight)
            std::fill(m_isBlank.begin() + run.begin, m_isBlank.begin() + run.end, true);
        x = run.end;
    }
}

int InkColumns::widestBlank(double from, double to) const {
    int widest = 0;
    int current = 0;
    for (int x = clampedColumn(std::floor(from)); x < clampedColumn(std::ceil(to)); ++x) {
        current = m_isBlank[x] ? current + 1 : 0;
        widest = std::max(widest, current);
    }
    return widest;
}

RowRun InkColumns::inkRows(double from, double to) const {
    const int left = clampedColumn(std::floor(from));
    const int right = clampedColumn(std::ceil(to));
    RowRun rows{m_ink.height(), 0};
    for (int y = 0; y < m_ink.height(); ++y) {
        const uchar* row = m_ink.constScanLine(y);
        if (std::any_of(row + left, row + right, [](uchar level) { return level < inkLevel; })) {
            rows.begin = std::min(rows.begin, y);
            rows.end = y + 1;
        }
    }
    return rows.end > 0 ? rows : RowRun{0, m_ink.height()};
}

bool InkColumns::hasInk(int x) const {
    for (int y = 0; y < m_ink.height(); ++y) {
        if (m_ink.constScanLine(y)[x] < inkLevel)
            return true;
    }
    return false;
}

/// Whether the column's only ink is a thin stroke below the letters.
bool InkColumns::isLowStroke(int x) const {
    int thickness = 0;
    for (int y = 0; y < m_ink.height(); ++y) {
        if (m_ink.constScanLine(y)[x] >= inkLevel)
            continue;
        if (y < m_lowest)
            return false;
        ++thickness;
    }
    return thickness > 0 && thickness <= std::max(2, m_ink.height() / 6);
}

/// Whether `column` has ink where the low stroke has.
bool InkColumns::carriesOn(int stroke, int column) const {
    if (column < 0 || column >= m_ink.width())
        return false;
    for (int y = m_lowest; y < m_ink.height(); ++y) {
        const uchar* row = m_ink.constScanLine(y);
        if (row[stroke] < inkLevel && row[column] < inkLevel)
            return true;
    }
    return false;
}

/// The lowest row of most columns with letters.
int InkColumns::baseline() const {
    std::vector<int> columnsEndingAt(m_ink.height());
    for (int x = 0; x < m_ink.width(); ++x) {
        if (!m_isBlank[x] && !isLowStroke(x))
            ++columnsEndingAt[inkRows(x, x + 1).end - 1];
    }
    return static_cast<int>(std::ranges::max_element(columnsEndingAt) - columnsEndingAt.begin());
}

int InkColumns::clampedColumn(double x) const {
    return std::clamp(static_cast<int>(x), 0, m_ink.width());
}

} // namespace Veilshot
