#include "VeilshotCore/Rendering/InnerLoops.h"

// The choice between the two is made when the program is loaded, before the sanitizers are ready for it.
#if defined(__x86_64__) && defined(__linux__) && defined(__OPTIMIZE__) && !defined(__SANITIZE_ADDRESS__) &&  \
    !defined(__SANITIZE_THREAD__) && __has_attribute(target_clones)
#define VEILSHOT_ALSO_FOR_AVX2 __attribute__((target_clones("avx2", "default")))
#else
#define VEILSHOT_ALSO_FOR_AVX2
#endif

namespace Veilshot {

namespace {

inline void addByte(uchar value, std::uint16_t& plainSum, std::uint16_t& runningSum) {
    plainSum = static_cast<std::uint16_t>(plainSum + value);
    runningSum = static_cast<std::uint16_t>(runningSum + plainSum);
}

} // namespace

VEILSHOT_ALSO_FOR_AVX2
void addRow(const uchar* row, int count, std::uint16_t* __restrict plainSums,
            std::uint16_t* __restrict runningSums) {
    for (int i = 0; i < count; ++i)
        addByte(row[i], plainSums[i], runningSums[i]);
}

VEILSHOT_ALSO_FOR_AVX2
void addFourRows(const std::array<const uchar*, 4>& rows, int count, std::uint16_t* __restrict plainSums,
                 std::uint16_t* __restrict runningSums) {
    const auto [row0, row1, row2, row3] = rows;
    for (int i = 0; i < count; ++i) {
        std::uint16_t plainSum = plainSums[i];
        std::uint16_t runningSum = runningSums[i];
        addByte(row0[i], plainSum, runningSum);
        addByte(row1[i], plainSum, runningSum);
        addByte(row2[i], plainSum, runningSum);
        addByte(row3[i], plainSum, runningSum);
        plainSums[i] = plainSum;
        runningSums[i] = runningSum;
    }
}

VEILSHOT_ALSO_FOR_AVX2
void addSixRows(const std::array<const uchar*, 6>& rows, int count, std::uint16_t* __restrict plainSums,
                std::uint16_t* __restrict runningSums) {
    const auto [row0, row1, row2, row3, row4, row5] = rows;
    for (int i = 0; i < count; ++i) {
        std::uint16_t plainSum = plainSums[i];
        std::uint16_t runningSum = runningSums[i];
        addByte(row0[i], plainSum, runningSum);
        addByte(row1[i], plainSum, runningSum);
        addByte(row2[i], plainSum, runningSum);
        addByte(row3[i], plainSum, runningSum);
        addByte(row4[i], plainSum, runningSum);
        addByte(row5[i], plainSum, runningSum);
        plainSums[i] = plainSum;
        runningSums[i] = runningSum;
    }
}

VEILSHOT_ALSO_FOR_AVX2
void weighSums(int rowCount, int count, std::uint16_t* __restrict plainToRising,
               std::uint16_t* __restrict runningToFalling) {
    for (int i = 0; i < count; ++i) {
        const std::uint16_t plainSum = plainToRising[i];
        const auto falling = static_cast<std::uint16_t>(2 * runningToFalling[i] - plainSum);
        plainToRising[i] = static_cast<std::uint16_t>(2 * rowCount * plainSum - falling);
        runningToFalling[i] = falling;
    }
}

VEILSHOT_ALSO_FOR_AVX2
void addPairs(const WeightedPair& first, const WeightedPair& second, int count, float* __restrict sums) {
    const auto [weight1, before1, after1] = first;
    const auto [weight2, before2, after2] = second;
    for (int i = 0; i < count; ++i)
        sums[i] += weight1 * (before1[i] + after1[i]) + weight2 * (before2[i] + after2[i]);
}

VEILSHOT_ALSO_FOR_AVX2
void blendFourRows(const std::array<const float*, 4>& rows, const std::array<float, 4>& weights, int count,
                   float* __restrict sums) {
    const auto [row0, row1, row2, row3] = rows;
    const auto [weight0, weight1, weight2, weight3] = weights;
    for (int i = 0; i < count; ++i)
        sums[i] = weight0 * row0[i] + weight1 * row1[i] + weight2 * row2[i] + weight3 * row3[i];
}

VEILSHOT_ALSO_FOR_AVX2
void blendNeighbours(const float* samples, int firstSample, const Neighbours* columns, int columnCount,
                     float* __restrict pixels) {
    for (int column = 0; column < columnCount; ++column) {
        const float* nearby = samples + 4 * qsizetype(columns[column].first - firstSample);
        const auto [weight0, weight1, weight2, weight3] = columns[column].weights;
        for (int channel = 0; channel < 4; ++channel)
            pixels[4 * column + channel] = weight0 * nearby[channel] + weight1 * nearby[channel + 4] +
                                           weight2 * nearby[channel + 8] + weight3 * nearby[channel + 12];
    }
}

VEILSHOT_ALSO_FOR_AVX2
void roundToBytes(const float* values, int count, uchar* __restrict bytes) {
    for (int i = 0; i < count; ++i)
        bytes[i] = static_cast<uchar>(static_cast<int>(values[i] + 0.5f));
}

} // namespace Veilshot
