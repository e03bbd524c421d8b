#pragma once

#include <QtGlobal>
#include <array>
#include <cstdint>

namespace Veilshot {

/// The loops in which the blur spends its time. They are plain C++ that compilers turn into vector
/// instructions, built twice where that is possible: for any processor and for those with AVX2.
/// `count` is in values, four to a pixel or sample. Inputs do not overlap outputs.

/// Sums up n rows of bytes, from top to bottom, with the weights 1, 3, … 2n − 1 (rising) and with the same
/// from bottom to top (falling). The weights add up to n²: the results fit into 16 bits.
///
/// With s1 = Σ p_i and s2 = Σ (s1 after each step) = Σ (n − i)·p_i, the sum with the falling weights
/// 2(n − i) − 1 is 2·s2 − s1, and that with the rising ones, 2i + 1, is 2n·s1 minus it.
void weighTwoRows(const std::array<const uchar*, 2>& rows, int count, std::uint16_t* rising,
                  std::uint16_t* falling);
void weighThreeRows(const std::array<const uchar*, 3>& rows, int count, std::uint16_t* rising,
                    std::uint16_t* falling);
void weighFourRows(const std::array<const uchar*, 4>& rows, int count, std::uint16_t* rising,
                   std::uint16_t* falling);

/// Adds two pairs of rows to the same kinds of sum; of a pair, one row is as far from the top as the other is
/// from the bottom.
struct MirroredRows {
    const float* top;
    const float* bottom;
    float smallWeight;
    float largeWeight;
};
void addMirroredRows(const MirroredRows& first, const MirroredRows& second, int count, float* rising,
                     float* falling);

/// sums += weight · (before + after), for two pairs.
struct WeightedPair {
    float weight;
    const float* before;
    const float* after;
};
void addPairs(const WeightedPair& first, const WeightedPair& second, int count, float* sums);

/// sums = Σ weights · rows.
void blendFourRows(const std::array<const float*, 4>& rows, const std::array<float, 4>& weights, int count,
                   float* sums);

/// The four samples around a pixel along one axis, and their weights.
struct Neighbours {
    int first;
    std::array<float, 4> weights;
};
/// One pixel of four values for each of the columns; `samples` is that of number `firstSample`.
void blendNeighbours(const float* samples, int firstSample, const Neighbours* columns, int columnCount,
                     float* pixels);

/// Rounds values from 0 to 255 to the nearest byte.
void roundToBytes(const float* values, int count, uchar* bytes);

} // namespace Veilshot
