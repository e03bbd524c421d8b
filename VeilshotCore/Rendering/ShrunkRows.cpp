#include "VeilshotCore/Rendering/ShrunkRows.h"

#include "VeilshotCore/Rendering/InnerLoops.h"
#include "VeilshotCore/Rendering/RegionRows.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace Veilshot {

namespace {

int floorOfQuotient(int dividend, int divisor) {
    return dividend >= 0 ? dividend / divisor : -((-dividend + divisor - 1) / divisor);
}

/// The four channels of a sample at once: compilers find the other vectors by themselves, but not these.
template<typename Value>
using FourOf [[gnu::vector_size(4 * sizeof(Value))]] = Value;

} // namespace

QRect shrunkDomain(const QRect& input, int factor) {
    // The first and the last sample see nothing but repeated edges.
    const auto first = [&](int edge) { return floorOfQuotient(edge + 1, factor) - 1; };
    const auto last = [&](int edge) { return floorOfQuotient(edge + factor - 1, factor) + 1; };
    return {QPoint(first(input.left()), first(input.top())),
            QPoint(last(input.right()), last(input.bottom()))};
}

QRegion inputsOfShrunk(const QRegion& samples, const QRect& inputDomain, int factor) {
    return mapped(samples, [&](const QRect& rect) {
        const QPoint topLeft((rect.left() - 1) * factor, (rect.top() - 1) * factor);
        const QPoint bottomRight((rect.right() + 1) * factor - 1, (rect.bottom() + 1) * factor - 1);
        return clampedTo(inputDomain, {topLeft, bottomRight});
    });
}

template<typename Sum>
ShrunkRows<Sum>::ShrunkRows(const QRect& inputDomain, int factor, const QRegion& needed, int rowsKept)
    : SampleRows(shrunkDomain(inputDomain, factor), needed, rowsKept), m_factor(factor),
      m_inputDomain(inputDomain), m_blocks(mapped(needed, [&](const QRect& rect) {
          return reaching(inputDomain, QRect(QPoint((rect.left() - 1) * factor, rect.top() - 1),
                                             QPoint((rect.right() + 1) * factor - 1, rect.bottom())));
      })) {
    const QRect bounds = m_blocks.boundingRect();
    m_firstColumn = bounds.left();
    m_lastBlock = bounds.top() - 2;
    for (std::vector<Sum>* sums : {&m_risingAbove, &m_rising, &m_falling})
        sums->resize(4 * std::size_t(bounds.width()));
}

template<typename Sum>
void ShrunkRows<Sum>::make(int row, float* samples) {
    if (m_lastBlock != row - 1)
        sumBlock(row - 1);
    m_risingAbove.swap(m_rising);
    sumBlock(row);
    const int first = needed().boundingRect().left();
    for (const QRect& rect : rectsInRow(needed(), row))
        averageColumns(rect, samples + 4 * qsizetype(rect.left() - first));
}

template<typename Sum>
void ShrunkRows<Sum>::sumBlock(int block) {
    for (const QRect& rect : rectsInRow(m_blocks, block)) {
        const int left = std::max(rect.left(), m_inputDomain.left());
        const int right = std::min(rect.right(), m_inputDomain.right());
        const qsizetype offset = 4 * qsizetype(left - m_firstColumn);
        sumBlock(block, left, right - left + 1, m_rising.data() + offset, m_falling.data() + offset);
        repeatEdges(m_inputDomain, rect, m_rising.data(), m_firstColumn);
        repeatEdges(m_inputDomain, rect, m_falling.data(), m_firstColumn);
    }
    m_lastBlock = block;
}

template<typename Sum>
void ShrunkRows<Sum>::averageColumns(const QRect& rect, float* samples) {
    using Total = std::conditional_t<std::is_integral_v<Sum>, std::int32_t, float>;
    using FourSums = FourOf<Sum>;
    using FourTotals = FourOf<Total>;
    const auto weightOfBlocks = static_cast<float>(2 * m_factor * m_factor);
    const float scale = 1 / (weightOfBlocks * weightOfBlocks);
    const auto twiceCount = static_cast<Total>(2 * m_factor);
    const auto opaqueTotal = static_cast<Total>(255 * 4 * m_factor * m_factor * m_factor * m_factor);
    bool isOpaque = true;
    const qsizetype offset = 4 * (qsizetype(rect.left() - 1) * m_factor - m_firstColumn);
    const Sum* above = m_risingAbove.data() + offset;
    const Sum* below = m_falling.data() + offset;
    FourTotals risingLeft{};
    for (int sample = -1; sample < rect.width(); ++sample) {
        FourTotals plainSum{};
        FourTotals runningSum{};
        for (int column = 0; column < m_factor; ++column, above += 4, below += 4) {
            FourSums fourAbove;
            FourSums fourBelow;
            std::memcpy(&fourAbove, above, sizeof fourAbove);
            std::memcpy(&fourBelow, below, sizeof fourBelow);
            plainSum += __builtin_convertvector(fourAbove, FourTotals) +
                        __builtin_convertvector(fourBelow, FourTotals);
            runningSum += plainSum;
        }
        const FourTotals falling = runningSum + runningSum - plainSum; // see weighSums()
        if (sample >= 0) {
            const FourTotals total = risingLeft + falling;
            isOpaque &= total[3] == opaqueTotal;
            const FourOf<float> average = __builtin_convertvector(total, FourOf<float>) * scale;
            std::memcpy(samples + 4 * qsizetype(sample), &average, sizeof average);
        }
        risingLeft = plainSum * twiceCount - falling;
    }
    m_isOpaque &= isOpaque;
}

template class ShrunkRows<std::uint16_t>;
template class ShrunkRows<float>;

ShrunkPixels::ShrunkPixels(const QImage& source, int factor, const QRegion& needed, int rowsKept)
    : ShrunkRows(source.rect(), factor, needed, rowsKept), m_source(source) {}

void ShrunkPixels::sumBlock(int block, int firstColumn, int count, std::uint16_t* rising,
                            std::uint16_t* falling) {
    const int values = 4 * count;
    const int rowCount = factor();
    const auto pixelsOf = [&](int row) {
        const int inside = std::clamp(block * rowCount + row, inputDomain().top(), inputDomain().bottom());
        return m_source.constScanLine(inside) + 4 * qsizetype(firstColumn);
    };
    std::fill_n(rising, values, 0);
    std::fill_n(falling, values, 0);
    int row = 0;
    for (; row + 6 <= rowCount; row += 6)
        addSixRows({pixelsOf(row), pixelsOf(row + 1), pixelsOf(row + 2), pixelsOf(row + 3), pixelsOf(row + 4),
                    pixelsOf(row + 5)},
                   values, rising, falling);
    for (; row + 4 <= rowCount; row += 4)
        addFourRows({pixelsOf(row), pixelsOf(row + 1), pixelsOf(row + 2), pixelsOf(row + 3)}, values, rising,
                    falling);
    for (; row < rowCount; ++row)
        addRow(pixelsOf(row), values, rising, falling);
    weighSums(rowCount, values, rising, falling);
}

ShrunkSamples::ShrunkSamples(std::unique_ptr<SampleRows> input, int factor, const QRegion& needed,
                             int rowsKept)
    : ShrunkRows(input->domain(), factor, needed, rowsKept), m_input(std::move(input)) {}

void ShrunkSamples::sumBlock(int block, int firstColumn, int count, float* rising, float* falling) {
    const int values = 4 * count;
    std::fill_n(rising, values, 0.0f);
    std::fill_n(falling, values, 0.0f);
    for (int row = 0; row < factor(); ++row) {
        const float* samples = m_input->at(firstColumn, block * factor() + row);
        for (int i = 0; i < values; ++i) {
            rising[i] += samples[i];
            falling[i] += rising[i];
        }
    }
    const auto twiceCount = static_cast<float>(2 * factor());
    for (int i = 0; i < values; ++i) { // see weighSums()
        falling[i] = 2 * falling[i] - rising[i];
        rising[i] = twiceCount * rising[i] - falling[i];
    }
}

} // namespace Veilshot
