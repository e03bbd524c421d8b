#include "Veilshot/DesignSystem/BlurredText.h"

#include "Veilshot/DesignSystem/CoverageBlur.h"

#include <QPainter>

namespace Veilshot {

BlurredText::BlurredText(QQuickItem* parent) : QQuickPaintedItem(parent) {
    connect(this, &BlurredText::lookChanged, this, [this] { update(); });
}

void BlurredText::paint(QPainter* painter) {
    // There is no detail in it that more pixels could show.
    QImage shape(boundingRect().size().toSize(), QImage::Format_Alpha8);
    shape.fill(0);
    QPainter shapePainter(&shape);
    shapePainter.setFont(m_font);
    shapePainter.drawText(shape.rect(), Qt::AlignCenter, m_text);
    shapePainter.end();
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawImage(boundingRect(), CoverageBlur::make(shape, m_blurRadius / 2, m_color));
}

} // namespace Veilshot
