#include "Veilshot/Features/History/HistoryImage.h"

#include "Veilshot/Platform/FutureOutcome.h"
#include "Veilshot/Platform/ImageDecoder.h"

#include <QPainter>
#include <QPainterPath>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QtConcurrentRun>
#include <cmath>
#include <new>

namespace Veilshot {

namespace {

QRectF place(QSize image, const HistoryImage::Request& request) {
    const double ratio = request.devicePixelRatio;
    const QSizeF fitting = QSizeF(image).scaled(request.bounds, Qt::KeepAspectRatio) * ratio;
    const QSizeF size(std::max(1.0, std::round(fitting.width())),
                      std::max(1.0, std::round(fitting.height())));
    const QSizeF margins = (request.bounds * ratio - size) / 2;
    return {QPointF(std::round(margins.width()), std::round(margins.height())) / ratio, size / ratio};
}

void cutCorners(HistoryImage::Picture& picture, const HistoryImage::Request& request) {
    const QRectF bounds(QPointF(), request.bounds);
    QPainterPath corners; // what lies between the rectangle and the rounded one
    corners.addRect(bounds);
    corners.addRoundedRect(bounds, request.cornerRadius, request.cornerRadius);
    QPainter painter(&picture.image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.scale(request.devicePixelRatio, request.devicePixelRatio);
    painter.translate(-picture.place.topLeft());
    painter.fillPath(corners, Qt::black);
}

HistoryImage::Picture load(const HistoryImage::Request& request) {
    try {
        DecodedImage decoded = ImageDecoder::decodeFile(request.url.toLocalFile());
        auto* bitmap = std::get_if<QImage>(&decoded);
        if (!bitmap)
            return {};
        HistoryImage::Picture picture;
        picture.place = place(bitmap->size(), request);
        picture.image = std::move(*bitmap)
                            .convertToFormat(QImage::Format_RGBA8888_Premultiplied)
                            .scaled((picture.place.size() * request.devicePixelRatio).toSize(),
                                    Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        if (request.cornerRadius > 0 && !picture.image.isNull())
            cutCorners(picture, request);
        return picture;
    } catch (const std::bad_alloc&) {
        return {};
    }
}

} // namespace

HistoryImage::HistoryImage(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
    m_fade.setDuration(150);
    m_fade.setEasingCurve(QEasingCurve::OutQuad);
    m_fade.setStartValue(0.0);
    m_fade.setEndValue(1.0);
}

void HistoryImage::setUrl(const QUrl& url) {
    if (url == m_url)
        return;
    m_url = url;
    drop();
    polish();
    Q_EMIT urlChanged();
}

void HistoryImage::setCornerRadius(double cornerRadius) {
    if (cornerRadius == m_cornerRadius)
        return;
    m_cornerRadius = cornerRadius;
    polish();
    Q_EMIT cornerRadiusChanged();
}

void HistoryImage::updatePolish() {
    if (!window() || size().isEmpty() || !m_url.isLocalFile())
        return;
    const Request request{m_url, size(), m_cornerRadius, window()->effectiveDevicePixelRatio()};
    // While an item is resized, one loading ends before the next begins.
    if (m_loading || request == m_shown)
        return;
    m_loading = request;
    whenDone(QtConcurrent::run(load, request), this, [this, request](const Picture& picture) {
        if (request != m_loading)
            return;
        m_loading.reset();
        const bool isFirst = !m_shown;
        m_shown = request;
        show(picture);
        if (isFirst && !picture.image.isNull())
            m_fade.start();
        polish();
    });
}

QSGNode* HistoryImage::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData*) {
    auto* node = static_cast<QSGImageNode*>(oldNode);
    if (m_picture.image.isNull()) {
        delete node;
        return nullptr;
    }
    const bool needsTexture = !node || m_isPictureNew;
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
    }
    if (needsTexture)
        node->setTexture(
            window()->createTextureFromImage(m_picture.image, QQuickWindow::TextureHasAlphaChannel));
    m_isPictureNew = false;
    node->setRect(m_picture.place);
    return node;
}

void HistoryImage::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        polish();
}

void HistoryImage::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemSceneChange && !data.window)
        drop();
    else if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        polish();
    QQuickItem::itemChange(change, data);
}

void HistoryImage::drop() {
    m_loading.reset();
    m_shown.reset();
    m_fade.stop();
    show({});
}

void HistoryImage::show(const Picture& picture) {
    m_picture = picture;
    m_isPictureNew = true;
    update();
}

} // namespace Veilshot
