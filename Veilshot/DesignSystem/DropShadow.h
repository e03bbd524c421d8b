#pragma once

#include "Veilshot/DesignSystem/ShadowImage.h"
#include "Veilshot/DesignSystem/Theme.h"

#include <QQuickItem>

namespace Veilshot {

/// The shadow of a rounded rectangle that fills this item, drawn beyond its bounds:
///     DropShadow { anchors.fill: parent; z: -1; cornerRadius: parent.radius }
/// It is blurred once, on the processor, so that it also shows where there are no effects.
class DropShadow : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal cornerRadius MEMBER m_cornerRadius NOTIFY lookChanged)
    Q_PROPERTY(qreal blurRadius MEMBER m_blurRadius NOTIFY lookChanged)
    Q_PROPERTY(QPointF offset MEMBER m_offset NOTIFY lookChanged)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY lookChanged)

public:
    explicit DropShadow(QQuickItem* parent = nullptr);

Q_SIGNALS:
    void lookChanged();

protected:
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData*) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    qreal m_cornerRadius = 0;
    qreal m_blurRadius = 8;
    QPointF m_offset{0, 4};
    QColor m_color = Theme::floatingShadow();

    // Of what is drawn.
    ShadowImage::Source m_source{};
    int m_margin = 0;
};

} // namespace Veilshot
