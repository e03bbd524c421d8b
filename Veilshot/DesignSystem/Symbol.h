#pragma once

#include <QColor>
#include <QImage>
#include <QQuickPaintedItem>
#include <QtQmlIntegration>
#include <memory>

class QSvgRenderer;

namespace Veilshot {

/// A symbol by its name ("envelope"), fitted into the item and drawn in one colour. It is not announced: what
/// shows a symbol has a label of its own. A name without a symbol draws nothing, in debug builds a magenta
/// cross.
class Symbol : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
    explicit Symbol(QQuickItem* parent = nullptr);
    ~Symbol() override;

    /// The symbol as a square of that many pixels, for what is no item. Transparent if there is no such
    /// symbol.
    static QImage image(const QString& name, int size, const QColor& color);

    QString name() const { return m_name; }
    void setName(const QString& name);
    QColor color() const { return m_color; }
    void setColor(const QColor& color);

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void nameChanged();
    void colorChanged();

private:
    QString m_name;
    QColor m_color = Qt::black;
    std::shared_ptr<QSvgRenderer> m_drawing;
};

} // namespace Veilshot
