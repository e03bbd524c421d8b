#include "VeilshotCore/Analysis/PeopleSearch/GreyLevels.h"

#include <algorithm>
#include <numeric>

namespace Veilshot {

int GreyLevels::of(const unsigned char* rgb) {
    // The weights of luma in BT.601, in 256ths.
    return (77 * rgb[0] + 150 * rgb[1] + 29 * rgb[2]) >> 8;
}

void GreyLevels::add(int level) {
    ++m_counts[level];
    ++m_count;
}

int GreyLevels::count() const {
    return m_count;
}

double GreyLevels::shareOfFullestWindow(int width) const {
    return static_cast<double>(fullestWindow(width).count) / std::max(1, m_count);
}

double GreyLevels::shareOfTwoWindows(int width) const {
    const Window first = fullestWindow(width);
    GreyLevels others = *this;
    std::fill_n(others.m_counts.begin() + first.start, width, 0);
    return static_cast<double>(first.count + others.fullestWindow(width).count) / std::max(1, m_count);
}

double GreyLevels::separation() const {
    double sum = 0;
    double squares = 0;
    for (std::size_t level = 0; level < m_counts.size(); ++level) {
        sum += static_cast<double>(level) * m_counts[level];
        squares += static_cast<double>(level * level) * m_counts[level];
    }
    double darkCount = 0;
    double darkSum = 0;
    double between = 0;
    for (std::size_t level = 0; level < m_counts.size(); ++level) {
        darkCount += m_counts[level];
        darkSum += static_cast<double>(level) * m_counts[level];
        const double brightCount = m_count - darkCount;
        if (darkCount == 0 || brightCount == 0)
            continue;
        const double distance = darkSum / darkCount - (sum - darkSum) / brightCount;
        between = std::max(between, distance * distance * darkCount * brightCount / m_count);
    }
    // Where it is zero, the variance is too.
    return between > 0 ? between / (squares - sum * sum / m_count) : 0;
}

GreyLevels::Window GreyLevels::fullestWindow(int width) const {
    Window fullest;
    for (int start = 0; start + width <= static_cast<int>(m_counts.size()); ++start) {
        const auto first = m_counts.begin() + start;
        const int count = std::accumulate(first, first + width, 0);
        if (count > fullest.count)
            fullest = {start, count};
    }
    return fullest;
}

} // namespace Veilshot
