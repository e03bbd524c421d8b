#include "Veilshot/DesignSystem/CoverageBlur.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace Veilshot::CoverageBlur {

namespace {

std::vector<float> gaussian(qreal sigma) {
    const int radius = int(std::ceil(reach * sigma));
    std::vector<float> weights(2 * radius + 1, 1);
    float sum = 0;
    for (int i = -radius; i <= radius; ++i)
        sum += weights[i + radius] = sigma > 0 ? float(std::exp(-i * i / (2 * sigma * sigma))) : 1;
    for (float& weight : weights)
        weight /= sum;
    return weights;
}

/// Blurs the rows of `source` and turns them into columns, so that doing it twice blurs both ways. Outside is
/// empty.
std::vector<float> blurredRowsAsColumns(const std::vector<float>& source, int width, int height,
                                        const std::vector<float>& weights) {
    const int radius = int(weights.size()) / 2;
    std::vector<float> target(source.size());
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            float sum = 0;
            for (int i = std::max(0, x - radius); i <= std::min(width - 1, x + radius); ++i)
                sum += source[y * width + i] * weights[i - x + radius];
            target[x * height + y] = sum;
        }
    return target;
}

} // namespace

QImage make(const QImage& shape, qreal sigma, const QColor& color) {
    const int width = shape.width(), height = shape.height();
    std::vector<float> coverage;
    coverage.reserve(size_t(width) * height);
    for (int y = 0; y < height; ++y)
        coverage.insert(coverage.end(), shape.constScanLine(y), shape.constScanLine(y) + width);
    const std::vector<float> weights = gaussian(sigma);
    coverage = blurredRowsAsColumns(coverage, width, height, weights);
    coverage = blurredRowsAsColumns(coverage, height, width, weights);

    QImage image(shape.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < height; ++y) {
        const auto line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x)
            line[x] = qPremultiply(qRgba(color.red(), color.green(), color.blue(),
                                         int(std::lround(coverage[y * width + x] * color.alphaF()))));
    }
    return image;
}

} // namespace Veilshot::CoverageBlur
