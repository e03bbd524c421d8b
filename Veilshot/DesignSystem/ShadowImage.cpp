#include "Veilshot/DesignSystem/ShadowImage.h"

#include "Veilshot/DesignSystem/CoverageBlur.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace Veilshot {

ShadowImage ShadowImage::make(QSizeF size, qreal cornerRadius, qreal blurRadius, const QColor& color,
                              int devicePixelRatio) {
    const qreal sigma = blurRadius / 2;
    ShadowImage shadow;
    shadow.margin = int(std::ceil(CoverageBlur::reach * sigma));
    // A side longer than this has a middle in which nothing changes.
    const int corner = shadow.margin + int(std::ceil(cornerRadius));
    const auto shortened = [corner](qreal side) { return std::min(int(std::ceil(side)), 2 * corner + 2); };
    const QSize rectangle(shortened(size.width()), shortened(size.height()));
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

    shadow.image = CoverageBlur::make(shape, sigma * devicePixelRatio, color);
    return shadow;
}

} // namespace Veilshot
