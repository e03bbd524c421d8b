#pragma once

#include "VeilshotCore/Rendering/SampleRows.h"

#include <QImage>
#include <memory>

namespace Veilshot {

/// A lattice `factor` times as coarse as what it is made from: sample m lies on the edge between the inputs
/// m·factor − 1 and m·factor and averages the `factor` inputs on each side of it with linear weights.
class ShrunkRows : public SampleRows {
public:
    static QRect shrunkDomain(const QRect& input, int factor);
    /// The inputs of the given samples, clamped to the input's domain.
    static QRegion inputsFor(const QRegion& samples, const QRect& inputDomain, int factor);

protected:
    ShrunkRows(const QRect& inputDomain, int factor, const QRegion& needed, int rowsKept);
    int factor() const { return m_factor; }
    const QRect& inputDomain() const { return m_inputDomain; }

    /// Sums up the input rows block·factor … block·factor + factor − 1 (clamped to the domain) for `count`
    /// columns: with weights that rise from ½ to factor − ½, and with weights that fall from factor − ½ to ½.
    virtual void sumBlock(int block, int firstColumn, int count, float* rising, float* falling) = 0;

private:
    void make(int row, float* samples) override;
    void sumBlock(int block);
    void averageColumns(const QRect& rect, float* samples) const;

    int m_factor;
    QRect m_inputDomain;
    /// Columns in inputs, rows in blocks.
    QRegion m_blocks;
    int m_firstColumn;
    int m_lastBlock;
    std::vector<float> m_risingAbove;
    std::vector<float> m_rising;
    std::vector<float> m_falling;
};

/// Made from the pixels of an image in Format_RGBA8888, which must outlive it.
class ShrunkPixels : public ShrunkRows {
public:
    ShrunkPixels(const QImage& source, int factor, const QRegion& needed, int rowsKept);
    bool opaqueSoFar() const override { return m_isOpaque; }

private:
    void sumBlock(int block, int firstColumn, int count, float* rising, float* falling) override;

    const QImage& m_source;
    bool m_isOpaque = true;
};

/// Made from another lattice.
class ShrunkSamples : public ShrunkRows {
public:
    ShrunkSamples(std::unique_ptr<SampleRows> input, int factor, const QRegion& needed, int rowsKept);
    bool opaqueSoFar() const override { return m_input->opaqueSoFar(); }

private:
    void sumBlock(int block, int firstColumn, int count, float* rising, float* falling) override;

    std::unique_ptr<SampleRows> m_input;
};

} // namespace Veilshot
