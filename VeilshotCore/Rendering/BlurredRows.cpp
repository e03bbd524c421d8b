#include "VeilshotCore/Rendering/BlurredRows.h"

#include "VeilshotCore/Rendering/RegionRows.h"

#include <algorithm>

namespace Veilshot {

namespace {

struct Pair {
    const float* before;
    const float* after;
};

/// Writes the sum of weight · (sample before + sample after) over all distances. `pairAt(distance)` says
/// where the samples of a distance begin.
template<typename PairAt>
void convolve(const std::vector<float>& kernel, int values, PairAt pairAt, float* sums) {
    const float* centre = pairAt(0).before;
    for (int i = 0; i < values; ++i)
        sums[i] = kernel[0] * centre[i];
    const int radius = static_cast<int>(kernel.size()) - 1;
    int distance = 1;
    for (; distance < radius; distance += 2) { // two at a time: half as many passes over the sums
        const auto [before, after] = pairAt(distance);
        const auto [before2, after2] = pairAt(distance + 1);
        const float weight = kernel[distance];
        const float weight2 = kernel[distance + 1];
        for (int i = 0; i < values; ++i)
            sums[i] += weight * (before[i] + after[i]) + weight2 * (before2[i] + after2[i]);
    }
    if (distance == radius) {
        const auto [before, after] = pairAt(distance);
        const float weight = kernel[distance];
        for (int i = 0; i < values; ++i)
            sums[i] += weight * (before[i] + after[i]);
    }
}

} // namespace

QRegion BlurredRows::inputsFor(const QRegion& samples, const QRect& inputDomain, int radius) {
    return mapped(samples, [&](const QRect& rect) {
        return clampedTo(inputDomain, rect.adjusted(-radius, -radius, radius, radius));
    });
}

BlurredRows::BlurredRows(std::unique_ptr<SampleRows> input, std::vector<float> kernel, const QRegion& needed,
                         int rowsKept)
    : SampleRows(needed.boundingRect(), needed, rowsKept), m_input(std::move(input)),
      m_kernel(std::move(kernel)),
      m_reads(mapped(needed,
                     [&](const QRect& rect) {
                         const int radius = static_cast<int>(m_kernel.size()) - 1;
                         return reaching(m_input->domain(), rect.adjusted(-radius, 0, radius, 0));
                     })),
      m_firstColumn(m_reads.boundingRect().left()),
      m_columnBlur(4 * std::size_t(m_reads.boundingRect().width())) {}

void BlurredRows::make(int row, float* samples) {
    const QRect& inputs = m_input->domain();
    for (const QRect& rect : rectsInRow(m_reads, row)) {
        const int left = std::max(rect.left(), inputs.left());
        const int right = std::min(rect.right(), inputs.right());
        convolve(
            m_kernel, 4 * (right - left + 1),
            [&](int distance) {
                return Pair{m_input->at(left, row - distance), m_input->at(left, row + distance)};
            },
            m_columnBlur.data() + 4 * qsizetype(left - m_firstColumn));
        repeatEdges(inputs, rect, m_columnBlur.data(), m_firstColumn);
    }
    const int first = needed().boundingRect().left();
    for (const QRect& rect : rectsInRow(needed(), row)) {
        const float* centre = m_columnBlur.data() + 4 * qsizetype(rect.left() - m_firstColumn);
        convolve(
            m_kernel, 4 * rect.width(),
            [&](int distance) {
                return Pair{centre - 4 * distance, centre + 4 * distance};
            },
            samples + 4 * qsizetype(rect.left() - first));
    }
}

} // namespace Veilshot
