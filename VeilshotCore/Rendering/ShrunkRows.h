#pragma once

#include "VeilshotCore/Rendering/SampleRows.h"

#include <QImage>
#include <cstdint>
#include <memory>

namespace Veilshot {

/// A lattice `factor` times as coarse as what it is made from: sample m lies on the edge between the inputs
/// m·factor − 1 and m·factor and averages the `factor` inputs on each side of it with linear weights.
/// A block is `factor` rows of inputs, summed up to `Sum`s: float, or integers where they can hold it.
template<typename Sum>
class ShrunkRows : public SampleRows {
protected:
    ShrunkRows(const QRect& inputDomain, int factor, const QRegion& needed, int rowsKept);
    int factor() const { return m_factor; }
    const QRect& inputDomain() const { return m_inputDomain; }
    /// False once a sample saw an alpha below 255. Meant for integers: floats round.
    bool isOpaqueSoFar() const { return m_isOpaque; }

    /// Sums up the input rows block·factor … block·factor + factor − 1 (clamped to the domain) for `count`
    /// columns: with the weights 1, 3, 5, … from top to bottom, and with the same from bottom to top.
    virtual void sumBlock(int block, int firstColumn, int count, Sum* rising, Sum* falling) = 0;

    void make(int row, float* samples) override;

private:
    void sumBlock(int block);
    void averageColumns(const QRect& rect, float* samples);
    template<typename Factor>
    void averageColumns(Factor factor, const QRect& rect, float* samples);

    int m_factor;
    QRect m_inputDomain;
    /// Columns in inputs, rows in blocks.
    QRegion m_blocks;
    int m_firstColumn;
    int m_lastBlock;
    bool m_isOpaque = true;
    std::vector<Sum> m_risingAbove;
    std::vector<Sum> m_rising;
    std::vector<Sum> m_falling;
};

/// Made from the pixels of an image in Format_RGBA8888, which must outlive it. Bytes cannot hold colours
/// weighted by alpha: it is valid for opaque pixels only. `factor` is from 2 to 4.
class ShrunkPixels : public ShrunkRows<std::uint16_t> {
public:
    ShrunkPixels(const QImage& source, int factor, const QRegion& needed, int rowsKept);
    bool isValid() const override { return isOpaqueSoFar(); }
    /// For who keeps the samples elsewhere than in here.
    using ShrunkRows::make;

private:
    void sumBlock(int block, int firstColumn, int count, std::uint16_t* rising,
                  std::uint16_t* falling) override;

    const QImage& m_source;
};

/// Made from another lattice, which keeps `factor` rows.
class ShrunkSamples : public ShrunkRows<float> {
public:
    ShrunkSamples(std::unique_ptr<SampleRows> input, int factor, const QRegion& needed, int rowsKept);
    bool isValid() const override { return m_input->isValid(); }

private:
    void sumBlock(int block, int firstColumn, int count, float* rising, float* falling) override;

    std::unique_ptr<SampleRows> m_input;
};

/// The domain of a lattice made from another one of domain `input`.
QRect shrunkDomain(const QRect& input, int factor);
/// The inputs of the given samples, clamped to the input's domain.
QRegion inputsOfShrunk(const QRegion& samples, const QRect& inputDomain, int factor);

} // namespace Veilshot
