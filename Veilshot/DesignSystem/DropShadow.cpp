#include "Veilshot/DesignSystem/DropShadow.h"

#include "Veilshot/DesignSystem/ShadowImage.h"

#include <QQuickWindow>
#include <QSGNinePatchNode>
#include <QSGRendererInterface>
#include <algorithm>
#include <cmath>

namespace Veilshot {

DropShadow::DropShadow(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
    connect(this, &DropShadow::lookChanged, this, &QQuickItem::update);
}

QSGNode* DropShadow::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
    if (width() <= 0 || height() <= 0) {
        delete node;
        return nullptr;
    }
    const auto patch = node ? static_cast<QSGNinePatchNode*>(node) : window()->createNinePatchNode();
    // The software renderer measures the texture's corners in pixels, whatever it is told.
    const bool isSoftware = window()->rendererInterface()->graphicsApi() == QSGRendererInterface::Software;
    const int ratio = isSoftware ? 1 : int(std::ceil(window()->effectiveDevicePixelRatio()));
    const qreal radius = std::min({m_cornerRadius, width() / 2, height() / 2});
    const auto source = ShadowImage::Source{size(), radius, m_blurRadius, m_color, ratio}.shortened();
    if (!node || source != m_source) {
        const ShadowImage shadow = ShadowImage::make(source);
        patch->setTexture(window()->createTextureFromImage(shadow.image));
        patch->setDevicePixelRatio(ratio);
        patch->setPadding(shadow.horizontalPadding, shadow.verticalPadding, shadow.horizontalPadding,
                          shadow.verticalPadding);
        m_source = source;
        m_margin = shadow.margin;
    }
    patch->setBounds(boundingRect().adjusted(-m_margin, -m_margin, m_margin, m_margin).translated(m_offset));
    patch->update();
    return patch;
}

void DropShadow::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        update();
}

void DropShadow::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickItem::itemChange(change, data);
    if (change == ItemDevicePixelRatioHasChanged)
        update();
}

} // namespace Veilshot
