#include "Veilshot/Features/Onboarding/RadialGlow.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace Veilshot {

namespace {

/// From 0 to 1, and even over any few neighbours: eight bits would show as bands in so weak a light.
float noise(int x, int y) {
    const float row = 0.06711056f * float(x) + 0.00583715f * float(y);
    const float mixed = 52.9829189f * (row - std::floor(row));
    return mixed - std::floor(mixed);
}

} // namespace

RadialGlow::RadialGlow(QQuickItem* parent) : QQuickPaintedItem(parent) {
    connect(this, &RadialGlow::lookChanged, this, [this] { update(); });
}

void RadialGlow::paint(QPainter* painter) {
    const float ratio = float(painter->deviceTransform().m11());
    QImage image((boundingRect().size() * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    const float red = m_color.redF(), green = m_color.greenF(), blue = m_color.blueF();
    for (int y = 0; y < image.height(); ++y) {
        const auto line = reinterpret_cast<QRgb*>(image.scanLine(y));
        const float dy = (float(y) + 0.5f) / ratio - float(m_centre.y());
        for (int x = 0; x < image.width(); ++x) {
            const float dx = (float(x) + 0.5f) / ratio - float(m_centre.x());
            const float faded =
                (std::sqrt(dx * dx + dy * dy) - float(m_innerRadius)) / float(m_outerRadius - m_innerRadius);
            const float alpha = 255 * m_color.alphaF() * (1 - std::clamp(faded, 0.f, 1.f));
            // The same for every component, so that none gets larger than alpha.
            const float threshold = alpha > 0 ? noise(x, y) : 0;
            const auto rounded = [threshold](float value) { return int(value + threshold); };
            line[x] =
                qRgba(rounded(alpha * red), rounded(alpha * green), rounded(alpha * blue), rounded(alpha));
        }
    }
    painter->drawImage(boundingRect(), image);
}

} // namespace Veilshot
