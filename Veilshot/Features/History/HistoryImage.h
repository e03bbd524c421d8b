#pragma once

#include <QImage>
#include <QPropertyAnimation>
#include <QQuickItem>
#include <QUrl>
#include <QtQmlIntegration>
#include <optional>

namespace Veilshot {

/// Shows one image file, as large as fits and in the middle; nothing as long as there is none or if it cannot
/// be read. A worker reads and scales it to the pixels that it covers. Once there it fades in, by the item's
/// own opacity; another `url` starts anew, and out of its window the item forgets the image.
class HistoryImage : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QUrl url READ url WRITE setUrl NOTIFY urlChanged)
    /// Of the item, not of the image: where the image reaches a corner of the item, it is cut off. A clip
    /// cannot do that without an OpenGL layer.
    Q_PROPERTY(double cornerRadius READ cornerRadius WRITE setCornerRadius NOTIFY cornerRadiusChanged)

public:
    explicit HistoryImage(QQuickItem* parent = nullptr);

    QUrl url() const { return m_url; }
    void setUrl(const QUrl& url);
    double cornerRadius() const { return m_cornerRadius; }
    void setCornerRadius(double cornerRadius);

    /// What the worker makes of a file.
    struct Request {
        QUrl url;
        QSizeF bounds;
        double cornerRadius;
        double devicePixelRatio;

        friend bool operator==(const Request&, const Request&) = default;
    };
    struct Picture {
        QImage image;
        QRectF place; ///< within the bounds, on whole pixels
    };

Q_SIGNALS:
    void urlChanged();
    void cornerRadiusChanged();

protected:
    void updatePolish() override;
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    void drop();
    void show(const Picture& picture);

    QUrl m_url;
    double m_cornerRadius = 0;
    std::optional<Request> m_loading;
    std::optional<Request> m_shown;
    Picture m_picture;
    bool m_isPictureNew = false;
    QPropertyAnimation m_fade{this, "opacity"};
};

} // namespace Veilshot
