#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQmlIntegration>

namespace Veilshot {

/// A circle of a line one unit wide, inside the item. Painted, because the software renderer tears a round
/// Rectangle apart when it is scaled.
class Ring : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY colorChanged)

public:
    explicit Ring(QQuickItem* parent = nullptr);

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void colorChanged();

private:
    QColor m_color;
};

} // namespace Veilshot
