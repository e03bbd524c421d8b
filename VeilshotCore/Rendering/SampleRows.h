#pragma once

#include <QRegion>
#include <algorithm>
#include <vector>

namespace Veilshot {

/// A lattice of colour samples that is made row by row, on demand, from top to bottom. A sample is four
/// floats: red, green, blue (each times alpha) and alpha, from 0 to 255.
/// Only the samples of a region are made, each of them once, and only the last few rows are kept: the memory
/// grows with the width of the picture and never with its area.
class SampleRows {
public:
    virtual ~SampleRows() = default;

    /// The samples outside `domain` repeat its outermost ones. `needed` lies inside of it. Only who has the
    /// rows elsewhere keeps none.
    SampleRows(const QRect& domain, const QRegion& needed, int rowsKept);

    const QRect& domain() const { return m_domain; }
    /// The sample and, to its right, the others of the same rectangle of the needed region. `row` is clamped
    /// to the domain, `column` has to be in it. Rows must be asked for in ascending order, or be among the
    /// last `rowsKept`; the samples stay in place as long.
    virtual const float* at(int column, int row);
    /// False once a row was made from pixels that the lattice cannot represent because they are not opaque.
    virtual bool isValid() const = 0;

protected:
    const QRegion& needed() const { return m_needed; }
    /// Writes the needed samples of a row, in ascending order of the rows; `samples` is that of the column
    /// `needed().boundingRect().left()`.
    virtual void make(int row, float* samples) = 0;

private:
    struct Row {
        bool isMade = false;
        int number = 0;
        std::vector<float> samples;
    };

    QRect m_domain;
    QRegion m_needed;
    QRect m_bounds;
    std::vector<Row> m_rows;
};

/// `rect` with every edge moved inside `domain`: never empty, unlike an intersection.
QRect clampedTo(const QRect& domain, const QRect& rect);
/// `rect` widened, if need be, to share at least one column with `domain`.
QRect reaching(const QRect& domain, const QRect& rect);
/// Copies the outermost sample inside the domain to those of `rect`'s columns that lie outside of it;
/// `samples` begins with that of `firstColumn`.
template<typename Value>
void repeatEdges(const QRect& domain, const QRect& rect, Value* samples, int firstColumn) {
    const auto at = [&](int column) { return samples + 4 * qsizetype(column - firstColumn); };
    for (int column = rect.left(); column < domain.left(); ++column)
        std::copy_n(at(domain.left()), 4, at(column));
    for (int column = domain.right() + 1; column <= rect.right(); ++column)
        std::copy_n(at(domain.right()), 4, at(column));
}

} // namespace Veilshot
