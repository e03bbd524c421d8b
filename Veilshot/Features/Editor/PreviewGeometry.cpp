#include "Veilshot/Features/Editor/PreviewGeometry.h"

#include <algorithm>

namespace Veilshot {

namespace {

QPointF clamped(QPointF point, QSizeF frame) {
    return {std::clamp(point.x(), 0.0, frame.width()), std::clamp(point.y(), 0.0, frame.height())};
}

} // namespace

QRectF PreviewGeometry::fittedFrame(QSizeF image, QSizeF space) {
    const QPointF centre(space.width() / 2, space.height() / 2);
    if (!(image.width() > 0 && image.height() > 0 && space.width() > 0 && space.height() > 0))
        return {centre, QSizeF(0, 0)};
    const double scale = std::min(space.width() / image.width(), space.height() / image.height());
    QRectF frame(QPointF(), image * scale);
    frame.moveCenter(centre);
    return frame;
}

QRectF PreviewGeometry::viewRect(const QRectF& normalizedRect, QSizeF frame) {
    return {frame.width() * normalizedRect.x(),
            frame.height() * (1 - (normalizedRect.y() + normalizedRect.height())),
            frame.width() * normalizedRect.width(), frame.height() * normalizedRect.height()};
}

NormalizedRect PreviewGeometry::normalized(const QRectF& viewRect, QSizeF frame) {
    return {viewRect.x() / frame.width(), 1 - (viewRect.y() + viewRect.height()) / frame.height(),
            viewRect.width() / frame.width(), viewRect.height() / frame.height()};
}

QRectF PreviewGeometry::draggedRect(QPointF start, QPointF current, QSizeF frame) {
    return QRectF(clamped(start, frame), clamped(current, frame)).normalized();
}

bool PreviewGeometry::isArea(const QRectF& draggedRect) {
    constexpr double thinnest = 5;
    return draggedRect.width() >= thinnest && draggedRect.height() >= thinnest;
}

} // namespace Veilshot
