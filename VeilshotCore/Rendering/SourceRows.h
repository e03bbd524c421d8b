#pragma once

#include "VeilshotCore/Rendering/SampleRows.h"

#include <QImage>

namespace Veilshot {

/// The pixels of an image in Format_RGBA8888, one sample each. The image must outlive it.
class SourceRows : public SampleRows {
public:
    SourceRows(const QImage& source, const QRegion& needed, int rowsKept);
    bool isValid() const override { return true; }

private:
    void make(int row, float* samples) override;

    const QImage& m_source;
};

enum class Opacity { opaque, mixed };
/// Converts samples to straight pixels, rounding to nearest. A pixel whose alpha rounds to zero keeps no
/// colour. `opaque` promises that every alpha is 255.
void writePixels(const float* samples, int count, Opacity opacity, uchar* pixels);

} // namespace Veilshot
