#pragma once

#include <QtGlobal>
#include <array>
#include <cstdint>

namespace Veilshot {

/// The loops in which the blur spends its time. They are plain C++ that compilers turn into vector
/// instructions, built twice where that is possible: for any processor and for those with AVX2.
/// `count` is in values, four to a pixel or sample. Inputs do not overlap outputs.

/// Adds bytes of rows from top to bottom: to `plainSums` each of them, to `runningSums` the plain sum after
/// each.
void addRow(const uchar* row, int count, std::uint16_t* plainSums, std::uint16_t* runningSums);
void addFourRows(const std::array<const uchar*, 4>& rows, int count, std::uint16_t* plainSums,
                 std::uint16_t* runningSums);
void addSixRows(const std::array<const uchar*, 6>& rows, int count, std::uint16_t* plainSums,
                std::uint16_t* runningSums);

/// Turns plain into rising and running into falling sums of `rowCount` rows.
///
/// With s1 = Σ p_i and s2 = Σ (s1 after each step) = Σ (n − i)·p_i, the sum with the falling weights
/// 2(n − i) − 1 is 2·s2 − s1, and that with the rising ones, 2i + 1, is 2n·s1 minus it. The weights add up
/// to n²: for up to 16 rows of bytes the results fit into 16 bits, whatever overflows on the way.
void weighSums(int rowCount, int count, std::uint16_t* plainToRising, std::uint16_t* runningToFalling);

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
