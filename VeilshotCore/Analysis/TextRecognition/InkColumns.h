#pragma once

#include <QImage>
#include <vector>

namespace Veilshot {

/// A run of columns: [begin, end).
struct ColumnRun {
    int begin = 0;
    int end = 0;

    double centre() const { return (begin + end) / 2.0; }
    int width() const { return end - begin; }
};

/// A run of rows: [begin, end).
struct RowRun {
    int begin = 0;
    int end = 0;
};

/// What the picture of one line of text tells by itself: where its blanks are, and its underscores. Takes a
/// Format_Grayscale8 picture, dark on white; all lengths are in its pixels. The picture must outlive this.
class InkColumns {
public:
    explicit InkColumns(const QImage& ink);

    /// The width of the widest run of columns without letters within [from, to). What an underline draws
    /// beneath a blank does not count.
    int widestBlank(double from, double to) const;

    /// The rows with ink within the columns [from, to); all rows where there is none.
    RowRun inkRows(double from, double to) const;

    /// The strokes that stand alone below everything else, from the left. Underlines go on beneath letters
    /// and are none.
    const std::vector<ColumnRun>& underscores() const { return m_underscores; }

private:
    bool hasInk(int x) const;
    bool isLowStroke(int x) const;
    bool carriesOn(int stroke, int column) const;
    int baseline() const;
    int clampedColumn(double x) const;

    const QImage& m_ink;
    int m_lowest; ///< underscores and underlines lie at or below this row
    std::vector<bool> m_isBlank;
    std::vector<ColumnRun> m_underscores;
};

} // namespace Veilshot
