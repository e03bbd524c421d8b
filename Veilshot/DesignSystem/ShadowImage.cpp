#include "Veilshot/DesignSystem/ShadowImage.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <vector>

namespace Veilshot {

namespace {

/// Where a Gaussian has faded to less than what eight bits can show.
constexpr qreal reach = 3;

qreal sigmaOf(qreal blurRadius) {
    return blurRadius / 2;
}

int marginOf(qreal blurRadius) {
    return int(std::ceil(reach * sigmaOf(blurRadius)));
}

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

ShadowImage::Source ShadowImage::Source::shortened() const {
    // A side longer than this has a middle in which nothing changes.
    const int longest = 2 * (marginOf(blurRadius) + int(std::ceil(cornerRadius))) + 2;
    const auto shorten = [longest](qreal side) { return std::min(int(std::ceil(side)), longest); };
    Source result = *this;
    result.size = QSize(shorten(size.width()), shorten(size.height()));
    return result;
}

ShadowImage ShadowImage::make(const Source& source) {
    const auto [size, cornerRadius, blurRadius, color, devicePixelRatio] = source.shortened();
    ShadowImage shadow;
    shadow.margin = marginOf(blurRadius);
    const int corner = shadow.margin + int(std::ceil(cornerRadius));
    const QSize rectangle = size.toSize();
    const QSize whole = rectangle.grownBy({shadow.margin, shadow.margin, shadow.margin, shadow.margin});
    const auto padding = [&](int side) { return std::min(shadow.margin + corner, side / 2); };
    shadow.horizontalPadding = padding(whole.width());
    shadow.verticalPadding = padding(whole.height());

    QImage shape(whole * devicePixelRatio, QImage::Format_Alpha8);
    shape.setDevicePixelRatio(devicePixelRatio);
    shape.fill(0);
    QPainter painter(&shape);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(QRect(QPoint(shadow.margin, shadow.margin), rectangle), cornerRadius,
                            cornerRadius);
    painter.end();

    const int width = shape.width(), height = shape.height();
    std::vector<float> coverage;
    coverage.reserve(size_t(width) * height);
    for (int y = 0; y < height; ++y)
        coverage.insert(coverage.end(), shape.constScanLine(y), shape.constScanLine(y) + width);
    const std::vector<float> weights = gaussian(sigmaOf(blurRadius) * devicePixelRatio);
    coverage = blurredRowsAsColumns(coverage, width, height, weights);
    coverage = blurredRowsAsColumns(coverage, height, width, weights);

    shadow.image = QImage(shape.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < height; ++y) {
        const auto line = reinterpret_cast<QRgb*>(shadow.image.scanLine(y));
        for (int x = 0; x < width; ++x)
            line[x] = qPremultiply(qRgba(color.red(), color.green(), color.blue(),
                                         int(std::lround(coverage[y * width + x] * color.alphaF()))));
    }
    return shadow;
}

} // namespace Veilshot
