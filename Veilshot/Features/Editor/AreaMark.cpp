#include "Veilshot/Features/Editor/AreaMark.h"

#include <QPainter>
#include <QPainterPath>

namespace Veilshot {

namespace {

struct Look {
    double distance; ///< of the line's middle from the area's edge, outward
    double cornerRadius;
    double lineWidth;
};

/// The highlight's shape is 2 larger than the area and has its line inside.
constexpr Look highlight{.distance = 2 - 0.75, .cornerRadius = 5 - 0.75, .lineWidth = 1.5};
constexpr Look dashed{.distance = 0, .cornerRadius = 4, .lineWidth = 2};
constexpr double dash = 6;
constexpr double gap = 4;

const Look& look(AreaMark::Style style) {
    return style == AreaMark::Style::Highlight ? highlight : dashed;
}

QRectF enlarged(const QRectF& rect, double margin) {
    return rect.adjusted(-margin, -margin, margin, margin);
}

QPainterPath roundedRect(const QRectF& rect, double radius) {
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

} // namespace

AreaMark::AreaMark(QQuickItem* parent) : QQuickPaintedItem(parent) {
    const auto repaint = [this] { update(); };
    connect(this, &AreaMark::styleChanged, this, &AreaMark::place);
    connect(this, &AreaMark::areaChanged, this, &AreaMark::place);
    connect(this, &AreaMark::frameSizeChanged, this, &AreaMark::place);
    connect(this, &AreaMark::frameRadiusChanged, this, repaint);
    connect(this, &AreaMark::fillChanged, this, repaint);
    connect(this, &AreaMark::lineChanged, this, repaint);
}

void AreaMark::place() {
    const double outside = look(m_style).distance + look(m_style).lineWidth / 2;
    const QRectF visible = enlarged(m_area, outside) & QRectF(QPointF(), m_frameSize);
    // Whole units, so that the painting is not shifted between the screen's pixels.
    const QRectF bounds = visible.toAlignedRect();
    setPosition(bounds.topLeft());
    setSize(bounds.size());
    update();
}

void AreaMark::paint(QPainter* painter) {
    const auto [distance, cornerRadius, lineWidth] = look(m_style);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(-position());
    const QRectF frame(QPointF(), m_frameSize);
    const QPainterPath inFrame = roundedRect(frame, m_frameRadius);
    const QPainterPath shape = roundedRect(enlarged(m_area, distance), cornerRadius);
    QPen pen(m_line, lineWidth, Qt::SolidLine, Qt::FlatCap);
    if (m_style == Style::Dashed)
        pen.setDashPattern({dash / lineWidth, gap / lineWidth});
    painter->setClipPath(inFrame);
    painter->fillPath(shape, m_fill);
    painter->strokePath(shape, pen);
}

} // namespace Veilshot
