#include "Veilshot/Features/Onboarding/DotGrid.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace Veilshot {

namespace {

constexpr qreal dotSide = 1.5;

} // namespace

DotGrid::DotGrid(QQuickItem* parent) : QQuickPaintedItem(parent) {
    // It is drawn in the screen's own pixels: to blend neighbours would only blur it.
    setSmooth(false);
    connect(this, &DotGrid::lookChanged, this, [this] { update(); });
}

void DotGrid::paint(QPainter* painter) {
    const qreal ratio = painter->deviceTransform().m11();
    const qreal side = std::max(1., std::round(dotSide * ratio)) / ratio;
    const auto onPixel = [ratio](qreal position) { return std::round(position * ratio) / ratio; };
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(m_color);
    // Too small to be round, a dot is a square.
    const qreal radius = side * ratio > 2 ? side / 2 : 0;
    for (qreal y = m_spacing / 2; y < height(); y += m_spacing)
        for (qreal x = m_spacing / 2; x < width(); x += m_spacing)
            painter->drawRoundedRect(QRectF(onPixel(x), onPixel(y), side, side), radius, radius);
}

} // namespace Veilshot
