#pragma once

#include "VeilshotCore/Rendering/SampleRows.h"

#include <QImage>

namespace Veilshot {

/// The pixels of an image in Format_RGBA8888, one sample each. The image must outlive it.
class SourceRows : public SampleRows {
public:
    SourceRows(const QImage& source, const QRegion& needed, int rowsKept);
    bool opaqueSoFar() const override { return m_isOpaque; }

private:
    void make(int row, float* samples) override;

    const QImage& m_source;
    bool m_isOpaque = true;
};

/// Converts straight pixels to samples; false if one of them is not opaque.
bool readPixels(const uchar* pixels, int count, float* samples);

enum class Opacity { opaque, mixed };
/// Converts samples to straight pixels, rounding to nearest. A pixel whose alpha rounds to zero keeps no
/// colour. `opaque` promises that every alpha is 255.
void writePixels(const float* samples, int count, Opacity opacity, uchar* pixels);

} // namespace Veilshot
