#pragma once

#include <array>

namespace Veilshot {

/// How many pixels there are of each grey level.
class GreyLevels {
public:
    static int of(const unsigned char* rgb);

    void add(int level);
    int count() const;

    /// The part of the pixels, 0…1, in those neighbouring levels, as many as `width`, that hold the most.
    double shareOfFullestWindow(int width) const;
    /// The same with a second such window beside the first.
    double shareOfTwoWindows(int width) const;
    /// The part of the variance, 0…1, that lies between two groups when they are divided best (Otsu's
    /// measure): 1 when there are two levels only.
    double separation() const;

private:
    struct Window {
        int start = 0;
        int count = 0;
    };
    Window fullestWindow(int width) const;

    std::array<int, 256> m_counts{};
    int m_count = 0;
};

} // namespace Veilshot
