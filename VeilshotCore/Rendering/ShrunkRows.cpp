#include "VeilshotCore/Rendering/ShrunkRows.h"

#include "VeilshotCore/Rendering/GaussianPlan.h"
#include "VeilshotCore/Rendering/InnerLoops.h"
#include "VeilshotCore/Rendering/RegionRows.h"

#include <algorithm>
#include <array>
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
    // Nearly all of the time goes by with the common factor: compilers unroll a number that they know.
    if (m_factor == GaussianPlan::commonFactor)
        averageColumns(std::integral_constant<int, GaussianPlan::commonFactor>(), rect, samples);
    else
        averageColumns(m_factor, rect, samples);
}

template<typename Sum>
template<typename Factor>
void ShrunkRows<Sum>::averageColumns(Factor factor, const QRect& rect, float* samples) {
    using Total = std::conditional_t<std::is_integral_v<Sum>, std::int32_t, float>;
    using FourSums = FourOf<Sum>;
    using FourTotals = FourOf<Total>;
    const auto weightOfBlocks = static_cast<float>(2 * factor * factor);
    const float scale = 1 / (weightOfBlocks * weightOfBlocks);
    const auto twiceCount = static_cast<Total>(2 * factor);
    const auto opaqueTotal = static_cast<Total>(255 * 4 * factor * factor * factor * factor);
    bool isOpaque = true;
    const qsizetype offset = 4 * (qsizetype(rect.left() - 1) * factor - m_firstColumn);
    const Sum* above = m_risingAbove.data() + offset;
    const Sum* below = m_falling.data() + offset;
    FourTotals risingLeft{};
    for (int sample = -1; sample < rect.width(); ++sample) {
        // Unlike in weighTwoRows(), each plain sum is added before the column: the sum with the falling
        // weights is 2·s2 + s1, and even 16 bits hold both, since Σ (n − 1 − i) times 2·4² bytes is at most
        // 48960.
        FourSums shortPlainSum{};
        FourSums shortRunningSum{};
        for (int column = 0; column < factor; ++column, above += 4, below += 4) {
            FourSums fourAbove;
            FourSums fourBelow;
            std::memcpy(&fourAbove, above, sizeof fourAbove);
            std::memcpy(&fourBelow, below, sizeof fourBelow);
            shortRunningSum += shortPlainSum;
            shortPlainSum += fourAbove + fourBelow;
        }
        const auto plainSum = __builtin_convertvector(shortPlainSum, FourTotals);
        const auto runningSum = __builtin_convertvector(shortRunningSum, FourTotals);
        const FourTotals falling = runningSum + runningSum + plainSum;
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
    const auto pixelsOf = [&](int row) {
        const int inside = std::clamp(block * factor() + row, inputDomain().top(), inputDomain().bottom());
        return m_source.constScanLine(inside) + 4 * qsizetype(firstColumn);
    };
    switch (factor()) {
    case 2:
        return weighTwoRows({pixelsOf(0), pixelsOf(1)}, values, rising, falling);
    case 3:
        return weighThreeRows({pixelsOf(0), pixelsOf(1), pixelsOf(2)}, values, rising, falling);
    default:
        return weighFourRows({pixelsOf(0), pixelsOf(1), pixelsOf(2), pixelsOf(3)}, values, rising, falling);
    }
}

ShrunkSamples::ShrunkSamples(std::unique_ptr<SampleRows> input, int factor, const QRegion& needed,
                             int rowsKept)
    : ShrunkRows(input->domain(), factor, needed, rowsKept), m_input(std::move(input)) {}

void ShrunkSamples::sumBlock(int block, int firstColumn, int count, float* rising, float* falling) {
    const int values = 4 * count;
    std::fill_n(rising, values, 0.0f);
    std::fill_n(falling, values, 0.0f);
    // The rows have to be asked for in order, but are added from the outside in.
    std::array<const float*, GaussianPlan::largestFactor> rows;
    for (int row = 0; row < factor(); ++row)
        rows[std::size_t(row)] = m_input->at(firstColumn, block * factor() + row);
    const auto pairFrom = [&](int top) -> MirroredRows {
        const int bottom = factor() - 1 - top;
        // The middle row is a pair with itself, and beyond it every pair has been added.
        const float share = top < bottom ? 1 : top == bottom ? 0.5f : 0;
        return {rows[std::size_t(top)], rows[std::size_t(bottom)], share * static_cast<float>(2 * top + 1),
                share * static_cast<float>(2 * bottom + 1)};
    };
    for (int top = 0; 2 * top < factor(); top += 2)
        addMirroredRows(pairFrom(top), pairFrom(top + 1), values, rising, falling);
}

} // namespace Veilshot
