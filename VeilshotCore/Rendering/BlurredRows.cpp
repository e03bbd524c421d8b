#include "VeilshotCore/Rendering/BlurredRows.h"

#include "VeilshotCore/Rendering/InnerLoops.h"
#include "VeilshotCore/Rendering/RegionRows.h"

#include <algorithm>
#include <utility>

namespace Veilshot {

namespace {

/// Writes the sum of weight · (sample before + sample after) over all distances. `pairAt(distance)` says
/// where the samples of a distance begin.
template<typename PairAt>
void convolve(const std::vector<float>& kernel, int count, PairAt pairAt, float* sums) {
    std::fill_n(sums, count, 0.0f);
    const auto weightedPair = [&](int distance) {
        const auto [before, after] = pairAt(distance);
        // The centre counts as a pair with itself.
        return WeightedPair{distance == 0 ? kernel[0] / 2 : kernel[distance], before, after};
    };
    // Two distances at a time: half as many passes over the sums.
    const int radius = static_cast<int>(kernel.size()) - 1;
    for (int distance = 0; distance <= radius; distance += 2) {
        WeightedPair second = weightedPair(std::min(distance + 1, radius));
        if (distance == radius)
            second.weight = 0;
        addPairs(weightedPair(distance), second, count, sums);
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
                return std::pair(m_input->at(left, row - distance), m_input->at(left, row + distance));
            },
            m_columnBlur.data() + 4 * qsizetype(left - m_firstColumn));
        repeatEdges(inputs, rect, m_columnBlur.data(), m_firstColumn);
    }
    const int first = needed().boundingRect().left();
    for (const QRect& rect : rectsInRow(needed(), row)) {
        const float* centre = m_columnBlur.data() + 4 * qsizetype(rect.left() - m_firstColumn);
        convolve(
            m_kernel, 4 * rect.width(),
            [&](int distance) { return std::pair(centre - 4 * distance, centre + 4 * distance); },
            samples + 4 * qsizetype(rect.left() - first));
    }
}

} // namespace Veilshot
