#include "VeilshotCore/Rendering/SourceRows.h"

#include "VeilshotCore/Rendering/InnerLoops.h"
#include "VeilshotCore/Rendering/RegionRows.h"

#include <algorithm>

namespace Veilshot {

namespace {

void readPixels(const uchar* pixels, int count, float* samples) {
    for (int i = 0; i < 4 * count; i += 4) {
        const float alpha = pixels[i + 3];
        const float weight = alpha * (1.0f / 255);
        for (int channel = 0; channel < 3; ++channel)
            samples[i + channel] = static_cast<float>(pixels[i + channel]) * weight;
        samples[i + 3] = alpha;
    }
}

} // namespace

SourceRows::SourceRows(const QImage& source, const QRegion& needed, int rowsKept)
    : SampleRows(source.rect(), needed, rowsKept), m_source(source) {}

void SourceRows::make(int row, float* samples) {
    const int first = needed().boundingRect().left();
    for (const QRect& rect : rectsInRow(needed(), row)) {
        const uchar* pixels = m_source.constScanLine(row) + 4 * qsizetype(rect.left());
        readPixels(pixels, rect.width(), samples + 4 * qsizetype(rect.left() - first));
    }
}

void writePixels(const float* samples, int count, Opacity opacity, uchar* pixels) {
    if (opacity == Opacity::opaque)
        return roundToBytes(samples, 4 * count, pixels);
    for (int i = 0; i < 4 * count; i += 4) {
        const float alpha = samples[i + 3];
        const bool isVisible = alpha >= 0.5f;
        const float weight = isVisible ? 255 / alpha : 0;
        for (int channel = 0; channel < 3; ++channel)
            pixels[i + channel] = static_cast<uchar>(std::min(samples[i + channel] * weight + 0.5f, 255.0f));
        pixels[i + 3] = isVisible ? static_cast<uchar>(alpha + 0.5f) : 0;
    }
}

} // namespace Veilshot
