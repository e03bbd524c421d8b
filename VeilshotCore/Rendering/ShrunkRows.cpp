#include "VeilshotCore/Rendering/ShrunkRows.h"

#include "VeilshotCore/Rendering/RegionRows.h"
#include "VeilshotCore/Rendering/SourceRows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace Veilshot {

namespace {

int floorOfQuotient(int dividend, int divisor) {
    return dividend >= 0 ? dividend / divisor : -((-dividend + divisor - 1) / divisor);
}

/// Running sums turn into weights: with s1 = Σ p_i and s2 = Σ (s1 after each step) = Σ (n − i)·p_i,
/// the falling weights n − i − ½ give s2 − s1/2 and the rising ones i + ½ give n·s1 minus that.
void weigh(float plainSum, float runningSum, int factor, float& rising, float& falling) {
    falling = runningSum - 0.5f * plainSum;
    rising = static_cast<float>(factor) * plainSum - falling;
}

constexpr int chunkPixels = 256;
using ChunkSums = std::array<std::uint16_t, 4 * chunkPixels>;

/// Adds `rowCount` rows of `count` bytes, one after the other.
template<int rowCount>
void addRows(const uchar* const* rows, int count, ChunkSums& plainSums, ChunkSums& runningSums) {
    for (int i = 0; i < count; ++i) {
        std::uint16_t plainSum = plainSums[i];
        std::uint16_t runningSum = runningSums[i];
        for (int row = 0; row < rowCount; ++row) {
            plainSum = static_cast<std::uint16_t>(plainSum + rows[row][i]);
            runningSum = static_cast<std::uint16_t>(runningSum + plainSum);
        }
        plainSums[i] = plainSum;
        runningSums[i] = runningSum;
    }
}

} // namespace

QRect ShrunkRows::shrunkDomain(const QRect& input, int factor) {
    // The first and the last sample see nothing but repeated edges.
    const auto first = [&](int edge) { return floorOfQuotient(edge + 1, factor) - 1; };
    const auto last = [&](int edge) { return floorOfQuotient(edge + factor - 1, factor) + 1; };
    return {QPoint(first(input.left()), first(input.top())),
            QPoint(last(input.right()), last(input.bottom()))};
}

QRegion ShrunkRows::inputsFor(const QRegion& samples, const QRect& inputDomain, int factor) {
    return mapped(samples, [&](const QRect& rect) {
        return clampedTo(inputDomain,
                         QRect(QPoint((rect.left() - 1) * factor, (rect.top() - 1) * factor),
                               QPoint((rect.right() + 1) * factor - 1, (rect.bottom() + 1) * factor - 1)));
    });
}

ShrunkRows::ShrunkRows(const QRect& inputDomain, int factor, const QRegion& needed, int rowsKept)
    : SampleRows(shrunkDomain(inputDomain, factor), needed, rowsKept), m_factor(factor),
      m_inputDomain(inputDomain), m_blocks(mapped(needed, [&](const QRect& rect) {
          return reaching(inputDomain, QRect(QPoint((rect.left() - 1) * factor, rect.top() - 1),
                                             QPoint((rect.right() + 1) * factor - 1, rect.bottom())));
      })) {
    const QRect bounds = m_blocks.boundingRect();
    m_firstColumn = bounds.left();
    m_lastBlock = bounds.top() - 2;
    for (std::vector<float>* sums : {&m_risingAbove, &m_rising, &m_falling})
        sums->resize(4 * std::size_t(bounds.width()));
}

void ShrunkRows::make(int row, float* samples) {
    if (m_lastBlock != row - 1)
        sumBlock(row - 1);
    m_risingAbove.swap(m_rising);
    sumBlock(row);
    const int first = needed().boundingRect().left();
    for (const QRect& rect : rectsInRow(needed(), row))
        averageColumns(rect, samples + 4 * qsizetype(rect.left() - first));
}

void ShrunkRows::sumBlock(int block) {
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

void ShrunkRows::averageColumns(const QRect& rect, float* samples) const {
    const int factor = m_factor;
    const float scale = 1 / (static_cast<float>(factor * factor) * static_cast<float>(factor * factor));
    const qsizetype offset = 4 * (qsizetype(rect.left() - 1) * factor - m_firstColumn);
    const float* above = m_risingAbove.data() + offset;
    const float* below = m_falling.data() + offset;
    std::array<float, 4> risingLeft{};
    for (int sample = -1; sample < rect.width(); ++sample) {
        std::array<float, 4> plainSum{};
        std::array<float, 4> runningSum{};
        for (int column = 0; column < factor; ++column, above += 4, below += 4) {
            for (int channel = 0; channel < 4; ++channel) {
                plainSum[channel] += above[channel] + below[channel];
                runningSum[channel] += plainSum[channel];
            }
        }
        std::array<float, 4> rising;
        std::array<float, 4> falling;
        for (int channel = 0; channel < 4; ++channel)
            weigh(plainSum[channel], runningSum[channel], factor, rising[channel], falling[channel]);
        if (sample >= 0) {
            for (int channel = 0; channel < 4; ++channel)
                samples[4 * sample + channel] = (risingLeft[channel] + falling[channel]) * scale;
        }
        risingLeft = rising;
    }
}

ShrunkPixels::ShrunkPixels(const QImage& source, int factor, const QRegion& needed, int rowsKept)
    : ShrunkRows(source.rect(), factor, needed, rowsKept), m_source(source) {}

void ShrunkPixels::sumBlock(int block, int firstColumn, int count, float* rising, float* falling) {
    const int rowCount = factor();
    std::array<const uchar*, 16> rows;
    for (int i = 0; i < rowCount; ++i) {
        const int row = std::clamp(block * rowCount + i, inputDomain().top(), inputDomain().bottom());
        rows[i] = m_source.constScanLine(row) + 4 * qsizetype(firstColumn);
    }
    for (int done = 0; done < count; done += chunkPixels) {
        // Bytes are summed up as they are. Only when an alpha sum shows that a pixel was not opaque, the
        // chunk is summed up again with the colours weighted by alpha, which bytes could not hold.
        const int values = 4 * std::min(chunkPixels, count - done);
        ChunkSums plainSums;
        ChunkSums runningSums;
        std::fill_n(plainSums.begin(), values, 0);
        std::fill_n(runningSums.begin(), values, 0);
        int row = 0;
        for (; row + 4 <= rowCount; row += 4)
            addRows<4>(rows.data() + row, values, plainSums, runningSums);
        for (; row < rowCount; ++row)
            addRows<1>(rows.data() + row, values, plainSums, runningSums);
        bool isOpaque = true;
        for (int i = 3; i < values; i += 4)
            isOpaque &= plainSums[i] == 255 * rowCount;
        if (isOpaque) {
            for (int i = 0; i < values; ++i)
                weigh(plainSums[i], runningSums[i], rowCount, rising[i], falling[i]);
        } else {
            m_isOpaque = false;
            std::array<float, 4 * chunkPixels> pixels;
            std::fill_n(rising, values, 0.0f);
            std::fill_n(falling, values, 0.0f);
            for (row = 0; row < rowCount; ++row) {
                readPixels(rows[row], values / 4, pixels.data());
                for (int i = 0; i < values; ++i) {
                    rising[i] += pixels[i];
                    falling[i] += rising[i];
                }
            }
            for (int i = 0; i < values; ++i)
                weigh(rising[i], falling[i], rowCount, rising[i], falling[i]);
        }
        rising += values;
        falling += values;
        for (int i = 0; i < rowCount; ++i)
            rows[i] += values;
    }
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
    for (int i = 0; i < values; ++i)
        weigh(rising[i], falling[i], factor(), rising[i], falling[i]);
}

} // namespace Veilshot
