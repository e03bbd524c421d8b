#pragma once

#include "VeilshotCore/Rendering/SampleRows.h"

#include <memory>

namespace Veilshot {

/// A lattice convolved with a symmetric kernel along both axes. It has samples outside the input's domain
/// too, where the blur has not levelled out yet.
class BlurredRows : public SampleRows {
public:
    /// The inputs of the given samples, clamped to the input's domain.
    static QRegion inputsFor(const QRegion& samples, const QRect& inputDomain, int radius);

    /// `kernel` holds the weights at the distances 0, 1, 2, … The input keeps 2·radius + 1 rows.
    BlurredRows(std::unique_ptr<SampleRows> input, std::vector<float> kernel, const QRegion& needed,
                int rowsKept);
    bool isValid() const override { return m_input->isValid(); }

private:
    void make(int row, float* samples) override;

    std::unique_ptr<SampleRows> m_input;
    std::vector<float> m_kernel;
    /// Columns in inputs, rows as needed.
    QRegion m_reads;
    int m_firstColumn;
    /// A row blurred along the columns only: the areas are wide and low, so that the halo beside them is
    /// far smaller than that above and below.
    std::vector<float> m_columnBlur;
};

} // namespace Veilshot
