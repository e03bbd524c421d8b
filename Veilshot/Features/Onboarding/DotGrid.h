#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQmlIntegration>

namespace Veilshot {

/// Small dots on a square grid over the whole item, each on whole pixels of the screen.
class DotGrid : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY lookChanged)
    Q_PROPERTY(qreal spacing MEMBER m_spacing NOTIFY lookChanged)

public:
    explicit DotGrid(QQuickItem* parent = nullptr);

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void lookChanged();

private:
    QColor m_color;
    qreal m_spacing = 16;
};

} // namespace Veilshot
