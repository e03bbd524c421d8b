#pragma once

#include "Veilshot/Features/Editor/EditorStore.h"
#include "Veilshot/Features/Editor/FittedBitmap.h"

#include <QPointer>
#include <QQuickItem>

namespace Veilshot {

/// Shows one of the store's images, stretched to the item, with rounded corners; nothing if there is none.
///
/// The item follows the store on the main thread, shortly before a frame is drawn and only while it is
/// visible. The render thread gets a picture of its own, once per change.
class BitmapView : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Veilshot::EditorStore* store READ store WRITE setStore NOTIFY storeChanged REQUIRED)
    /// The image itself, or what is made of it.
    Q_PROPERTY(Content content MEMBER m_content NOTIFY contentChanged REQUIRED)
    Q_PROPERTY(double cornerRadius MEMBER m_cornerRadius NOTIFY cornerRadiusChanged)
    /// The item's area, moved by less than a pixel to where the screen's pixels begin.
    Q_PROPERTY(QRectF paintedRect READ paintedRect NOTIFY paintedRectChanged)

public:
    enum class Content { Protected, Original };
    Q_ENUM(Content)

    explicit BitmapView(QQuickItem* parent = nullptr);

    EditorStore* store() const { return m_store; }
    void setStore(EditorStore* store);
    QRectF paintedRect() const { return m_paintedRect; }

Q_SIGNALS:
    void storeChanged();
    void contentChanged();
    void cornerRadiusChanged();
    void paintedRectChanged();

protected:
    void updatePolish() override;
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData*) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    /// The screen's pixels that the item covers, to the nearest whole one.
    QRect devicePixels() const;
    /// Nothing else tells an item that it has been moved together with its parents.
    void followWindow(QQuickWindow* window);

    QPointer<EditorStore> m_store;
    Content m_content = Content::Protected;
    double m_cornerRadius = 0;
    QRect m_devicePixels;
    QRectF m_paintedRect;
    FittedBitmap m_bitmap;
    qint64 m_originalKey = 0; ///< of the picture in m_bitmap
    /// What the texture shows.
    qint64 m_textureKey = 0;
    QMetaObject::Connection m_frames;
};

} // namespace Veilshot
