#include "VeilshotCore/Rendering/SampleRows.h"

#include <algorithm>

namespace Veilshot {

SampleRows::SampleRows(const QRect& domain, const QRegion& needed, int rowsKept)
    : m_domain(domain), m_needed(needed), m_bounds(needed.boundingRect()),
      m_rows(std::size_t(std::min(rowsKept, m_bounds.height()))) {
    for (Row& row : m_rows)
        row.samples.resize(4 * std::size_t(m_bounds.width()));
}

const float* SampleRows::at(int column, int row) {
    const int number = std::clamp(row, m_domain.top(), m_domain.bottom());
    Row& held = m_rows[std::size_t(number - m_bounds.top()) % m_rows.size()];
    if (!held.isMade || held.number != number) {
        make(number, held.samples.data());
        held.number = number;
        held.isMade = true;
    }
    return held.samples.data() + 4 * std::size_t(column - m_bounds.left());
}

QRect clampedTo(const QRect& domain, const QRect& rect) {
    const QPoint topLeft(std::clamp(rect.left(), domain.left(), domain.right()),
                         std::clamp(rect.top(), domain.top(), domain.bottom()));
    const QPoint bottomRight(std::clamp(rect.right(), domain.left(), domain.right()),
                             std::clamp(rect.bottom(), domain.top(), domain.bottom()));
    return {topLeft, bottomRight};
}

QRect reaching(const QRect& domain, const QRect& rect) {
    return {QPoint(std::min(rect.left(), domain.right()), rect.top()),
            QPoint(std::max(rect.right(), domain.left()), rect.bottom())};
}

} // namespace Veilshot
