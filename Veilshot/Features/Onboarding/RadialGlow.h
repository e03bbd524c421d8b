#pragma once

#include <QColor>
#include <QPointF>
#include <QQuickPaintedItem>
#include <QtQmlIntegration>

namespace Veilshot {

/// Light that fades away around a point of the item: `color` as far as `innerRadius`, nothing beyond
/// `outerRadius`. Painted rather than shaded, so that it looks the same without a graphics card.
class RadialGlow : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY lookChanged)
    Q_PROPERTY(QPointF centre MEMBER m_centre NOTIFY lookChanged)
    Q_PROPERTY(qreal innerRadius MEMBER m_innerRadius NOTIFY lookChanged)
    Q_PROPERTY(qreal outerRadius MEMBER m_outerRadius NOTIFY lookChanged)

public:
    explicit RadialGlow(QQuickItem* parent = nullptr);

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void lookChanged();

private:
    QColor m_color;
    QPointF m_centre;
    qreal m_innerRadius = 0;
    qreal m_outerRadius = 100;
};

} // namespace Veilshot
