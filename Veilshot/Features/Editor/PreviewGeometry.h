#pragma once

#include "VeilshotCore/Models/NormalizedRect.h"

#include <QObject>
#include <QRectF>
#include <QtQmlIntegration>

namespace Veilshot {

/// Where an image lies in its view, and an area in the image. View coordinates are points from the top-left
/// corner of the image as it is shown; normalized ones are those of NormalizedRect.
class PreviewGeometry : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// As large as the space allows, in its centre. Of no size if either has none.
    Q_INVOKABLE static QRectF fittedFrame(QSizeF image, QSizeF space);

    /// `normalizedRect` has its origin at the bottom left; so does what `normalized` returns.
    Q_INVOKABLE static QRectF viewRect(const QRectF& normalizedRect, QSizeF frame);
    static NormalizedRect normalized(const QRectF& viewRect, QSizeF frame);

    /// What a pointer spans that was pressed and moved: both points are brought into the frame first.
    static QRectF draggedRect(QPointF start, QPointF current, QSizeF frame);
    /// A click or a twitch is no area.
    static bool isArea(const QRectF& draggedRect);
};

} // namespace Veilshot
