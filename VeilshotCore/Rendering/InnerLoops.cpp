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

template<std::size_t count>
inline void weigh(const std::array<const uchar*, count>& rows, int valueCount,
                  std::uint16_t* __restrict rising, std::uint16_t* __restrict falling) {
    for (int i = 0; i < valueCount; ++i) {
        unsigned plainSum = 0;
        unsigned runningSum = 0;
        for (const uchar* row : rows) {
            plainSum += row[i];
            runningSum += plainSum;
        }
        const unsigned fallingSum = 2 * runningSum - plainSum;
        falling[i] = static_cast<std::uint16_t>(fallingSum);
        rising[i] = static_cast<std::uint16_t>(2 * unsigned(count) * plainSum - fallingSum);
    }
}

} // namespace

VEILSHOT_ALSO_FOR_AVX2
void weighTwoRows(const std::array<const uchar*, 2>& rows, int count, std::uint16_t* __restrict rising,
                  std::uint16_t* __restrict falling) {
    weigh(rows, count, rising, falling);
}

VEILSHOT_ALSO_FOR_AVX2
void weighThreeRows(const std::array<const uchar*, 3>& rows, int count, std::uint16_t* __restrict rising,
                    std::uint16_t* __restrict falling) {
    weigh(rows, count, rising, falling);
}

VEILSHOT_ALSO_FOR_AVX2
void weighFourRows(const std::array<const uchar*, 4>& rows, int count, std::uint16_t* __restrict rising,
                   std::uint16_t* __restrict falling) {
    weigh(rows, count, rising, falling);
}

VEILSHOT_ALSO_FOR_AVX2
void addMirroredRows(const MirroredRows& first, const MirroredRows& second, int count,
                     float* __restrict rising, float* __restrict falling) {
    const auto [top1, bottom1, small1, large1] = first;
    const auto [top2, bottom2, small2, large2] = second;
    for (int i = 0; i < count; ++i) {
        rising[i] += small1 * top1[i] + large1 * bottom1[i] + (small2 * top2[i] + large2 * bottom2[i]);
        falling[i] += large1 * top1[i] + small1 * bottom1[i] + (large2 * top2[i] + small2 * bottom2[i]);
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
