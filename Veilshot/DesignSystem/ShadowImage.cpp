#include "Veilshot/DesignSystem/ShadowImage.h"

#include "Veilshot/DesignSystem/CoverageBlur.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace Veilshot {

namespace {

qreal sigmaOf(qreal blurRadius) {
    return blurRadius / 2;
}

int marginOf(qreal blurRadius) {
    return int(std::ceil(CoverageBlur::reach * sigmaOf(blurRadius)));
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

    shadow.image = CoverageBlur::make(shape, sigmaOf(blurRadius) * devicePixelRatio, color);
    return shadow;
}

} // namespace Veilshot
