#include "Veilshot/Features/Editor/BitmapView.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <memory>

namespace Veilshot {

namespace {

QRegion coveredPixels(const SensitiveRegions& regions, QSize image) {
    QRegion covered;
    for (const SensitiveRegion& region : regions)
        covered += region.normalizedRect().toCoveredPixels(image);
    return covered;
}

} // namespace

BitmapView::BitmapView(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
    connect(this, &BitmapView::contentChanged, this, &QQuickItem::polish);
    connect(this, &BitmapView::cornerRadiusChanged, this, &QQuickItem::polish);
}

void BitmapView::setStore(EditorStore* store) {
    if (store == m_store)
        return;
    if (m_store)
        disconnect(m_store, nullptr, this, nullptr);
    m_store = store;
    if (store) {
        connect(store, &EditorStore::originalImageChanged, this, &QQuickItem::polish);
        connect(store, &EditorStore::protectedImageChanged, this, &QQuickItem::polish);
        connect(store, &QObject::destroyed, this, &QQuickItem::polish);
    }
    polish();
    Q_EMIT storeChanged();
}

QRect BitmapView::devicePixels() const {
    const double ratio = window()->effectiveDevicePixelRatio();
    const QRectF onScreen = mapRectToScene(boundingRect());
    const QPoint topLeft = (onScreen.topLeft() * ratio).toPoint();
    const QPoint bottomRight = (onScreen.bottomRight() * ratio).toPoint();
    return {topLeft, bottomRight - QPoint(1, 1)};
}

void BitmapView::updatePolish() {
    if (!window())
        return;
    // What is closed, or no longer the picture that is shown, is not kept for later.
    const qint64 shownKey = m_store ? m_store->originalImage().bitmap().cacheKey() : 0;
    if (!isVisible() && shownKey != m_originalKey) {
        m_bitmap.show({}, 0, {}, {}, 0);
        m_originalKey = 0;
        update();
    }
    if (!isVisible())
        return;
    const double ratio = window()->effectiveDevicePixelRatio();
    m_devicePixels = devicePixels();
    const QRect pixels = m_devicePixels;
    QImage bitmap;
    qint64 originalKey = 0;
    QRegion painted;
    if (m_store) {
        const QImage& original = m_store->originalImage().bitmap();
        originalKey = original.cacheKey();
        bitmap = original;
        if (m_content == Content::Protected && !m_store->protectedImage().isNull()) {
            bitmap = m_store->protectedImage().bitmap();
            painted = coveredPixels(m_store->regions(), original.size());
        }
    }
    m_originalKey = originalKey;
    m_bitmap.show(bitmap, originalKey, painted, pixels.size(), m_cornerRadius * ratio);
    const QRectF paintedRect =
        mapRectFromScene(QRectF(QPointF(pixels.topLeft()) / ratio, QSizeF(pixels.size()) / ratio));
    if (paintedRect != m_paintedRect) {
        m_paintedRect = paintedRect;
        Q_EMIT paintedRectChanged();
    }
    update();
}

QSGNode* BitmapView::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData*) {
    std::unique_ptr<QSGImageNode> node(static_cast<QSGImageNode*>(oldNode));
    const QImage& image = m_bitmap.image();
    if (image.isNull())
        return nullptr;
    if (!node) {
        node.reset(window()->createImageNode());
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
        m_textureKey = 0;
    }
    if (m_textureKey != image.cacheKey()) {
        node->setTexture(window()->createTextureFromImage(image));
        node->setSourceRect(QRectF(QPointF(), QSizeF(image.size())));
        m_textureKey = image.cacheKey();
    }
    node->setRect(m_paintedRect);
    return node.release();
}

void BitmapView::followWindow(QQuickWindow* window) {
    disconnect(m_frames);
    if (window)
        m_frames = connect(window, &QQuickWindow::afterAnimating, this, [this] {
            if (isVisible() && devicePixels() != m_devicePixels)
                polish();
        });
    polish();
}

void BitmapView::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickItem::geometryChange(now, before);
    polish();
}

void BitmapView::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange)
        followWindow(data.window);
    else if (change == ItemVisibleHasChanged || change == ItemDevicePixelRatioHasChanged)
        polish();
}

} // namespace Veilshot
