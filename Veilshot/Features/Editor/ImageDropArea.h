#pragma once

#include "Veilshot/Platform/ItemProvider.h"

#include <QQuickItem>
#include <QtQmlIntegration>

namespace Veilshot {

/// Takes pictures and files that are dragged over it. Qt Quick's own drop area does not give the data of a
/// drop away.
class ImageDropArea : public QQuickItem {
    Q_OBJECT
    QML_ANONYMOUS
    /// While a drag that may hold a picture is over it.
    Q_PROPERTY(bool isTargeted READ isTargeted NOTIFY isTargetedChanged)

public:
    explicit ImageDropArea(QQuickItem* parent = nullptr);

    bool isTargeted() const { return m_isTargeted; }

Q_SIGNALS:
    void isTargetedChanged();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// What was dropped, which is good until this returns. False refuses it.
    virtual bool drop(const ItemProviders& items) = 0;

    void setTargeted(bool isTargeted);

    bool m_isTargeted = false;
};

} // namespace Veilshot
