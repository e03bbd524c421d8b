#pragma once

#include "Veilshot/Features/Editor/EditorStore.h"

#include <QPointer>
#include <QQuickItem>
#include <QtQmlIntegration>

namespace Veilshot {

/// Takes pictures and files that are dragged over it and hands what is dropped to the session. Qt Quick's own
/// drop area does not give the data of a drop away.
class ImageDropTarget : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Veilshot::EditorStore* store MEMBER m_store NOTIFY storeChanged REQUIRED)
    /// While a drag that may hold a picture is over it.
    Q_PROPERTY(bool isTargeted READ isTargeted NOTIFY isTargetedChanged)

public:
    explicit ImageDropTarget(QQuickItem* parent = nullptr);

    bool isTargeted() const { return m_isTargeted; }

Q_SIGNALS:
    void storeChanged();
    void isTargetedChanged();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void setTargeted(bool isTargeted);

    QPointer<EditorStore> m_store;
    bool m_isTargeted = false;
};

} // namespace Veilshot
