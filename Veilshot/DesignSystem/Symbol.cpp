#include "Veilshot/DesignSystem/Symbol.h"

#include <QFile>
#include <QHash>
#include <QPainter>
#include <QSvgRenderer>

namespace Veilshot {

using namespace Qt::StringLiterals;

namespace {

/// Read once per name, however many items show it.
std::shared_ptr<QSvgRenderer> drawing(const QString& name) {
    static QHash<QString, std::weak_ptr<QSvgRenderer>> drawings;
    if (auto known = drawings.value(name).lock())
        return known;
    const QString path = u":/qt/qml/Veilshot/DesignSystem/Symbols/%1.svg"_s.arg(name);
    if (!QFile::exists(path))
        return nullptr;
    auto read = std::make_shared<QSvgRenderer>(path);
    read->setAspectRatioMode(Qt::KeepAspectRatio);
    drawings.insert(name, read);
    return read;
}

void paintIn(const QColor& color, QSvgRenderer& drawing, QPainter* painter, const QRectF& bounds) {
    drawing.render(painter, bounds);
    painter->setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter->fillRect(bounds, color);
}

#ifndef NDEBUG
void paintMissing(QPainter* painter, const QRectF& bounds) {
    painter->setPen(QPen(Qt::magenta, 2));
    painter->drawRect(bounds.adjusted(1, 1, -1, -1));
    painter->drawLine(bounds.topLeft(), bounds.bottomRight());
    painter->drawLine(bounds.topRight(), bounds.bottomLeft());
}
#endif

} // namespace

Symbol::Symbol(QQuickItem* parent) : QQuickPaintedItem(parent) {
    // It is drawn in the screen's own pixels: to blend neighbours would only blur it.
    setSmooth(false);
    setImplicitSize(16, 16);
}

Symbol::~Symbol() = default;

QImage Symbol::image(const QString& name, int size, const QColor& color) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (const auto symbol = drawing(name)) {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        paintIn(color, *symbol, &painter, image.rect());
    }
    return image;
}

void Symbol::setName(const QString& name) {
    if (name == m_name)
        return;
    m_name = name;
    m_drawing = drawing(name);
    update();
    Q_EMIT nameChanged();
}

void Symbol::setColor(const QColor& color) {
    if (color == m_color)
        return;
    m_color = color;
    update();
    Q_EMIT colorChanged();
}

void Symbol::paint(QPainter* painter) {
    const QRectF bounds = boundingRect();
    if (m_drawing)
        paintIn(m_color, *m_drawing, painter, bounds);
#ifndef NDEBUG
    else if (!m_name.isEmpty())
        paintMissing(painter, bounds);
#endif
}

} // namespace Veilshot
