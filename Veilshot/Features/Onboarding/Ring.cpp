#include "Veilshot/Features/Onboarding/Ring.h"

#include <QPainter>

namespace Veilshot {

Ring::Ring(QQuickItem* parent) : QQuickPaintedItem(parent) {
    connect(this, &Ring::colorChanged, this, [this] { update(); });
}

void Ring::paint(QPainter* painter) {
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(m_color, 1));
    painter->drawEllipse(boundingRect().adjusted(1, 1, -1, -1));
}

} // namespace Veilshot
