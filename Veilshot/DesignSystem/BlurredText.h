#pragma once

#include <QColor>
#include <QFont>
#include <QQuickPaintedItem>
#include <QtQmlIntegration>

namespace Veilshot {

/// A line of text in the middle of the item, blurred beyond reading. It is blurred once, on the processor, so
/// that it also shows where there are no effects; what would reach beyond the item is cut off. It is not
/// announced.
class BlurredText : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString text MEMBER m_text NOTIFY lookChanged)
    Q_PROPERTY(QFont font MEMBER m_font NOTIFY lookChanged)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY lookChanged)
    /// Twice the standard deviation of the Gaussian.
    Q_PROPERTY(qreal blurRadius MEMBER m_blurRadius NOTIFY lookChanged)

public:
    explicit BlurredText(QQuickItem* parent = nullptr);

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void lookChanged();

private:
    QString m_text;
    QFont m_font;
    QColor m_color;
    qreal m_blurRadius = 6;
};

} // namespace Veilshot
