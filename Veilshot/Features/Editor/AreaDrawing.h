#pragma once

#include "Veilshot/Features/Editor/EditorStore.h"

#include <QObject>
#include <QPointer>
#include <QRectF>
#include <QtQmlIntegration>

namespace Veilshot {

/// A rectangle on its way from the pointer to a custom area of the store, while the store wants one.
class AreaDrawing : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Veilshot::EditorStore* store MEMBER m_store NOTIFY storeChanged REQUIRED)
    /// Of the image as it is shown, in points; view coordinates are relative to it.
    Q_PROPERTY(QSizeF frameSize MEMBER m_frameSize NOTIFY frameSizeChanged)
    /// In view coordinates; null if nothing is being drawn.
    Q_PROPERTY(QRectF draftRect READ draftRect NOTIFY draftRectChanged)
    Q_PROPERTY(bool hasDraft READ hasDraft NOTIFY draftRectChanged)

public:
    using QObject::QObject;

    QRectF draftRect() const { return m_draftRect.value_or(QRectF()); }
    bool hasDraft() const { return m_draftRect.has_value(); }

    /// The pointer was pressed at `start` and is now at `current`. Nothing happens outside drawing mode.
    Q_INVOKABLE void drag(QPointF start, QPointF current);
    /// Adds what was drawn, unless it is too small or drawing mode has ended meanwhile.
    Q_INVOKABLE void finish();

Q_SIGNALS:
    void storeChanged();
    void frameSizeChanged();
    void draftRectChanged();

private:
    void setDraftRect(std::optional<QRectF> rect);

    QPointer<EditorStore> m_store;
    QSizeF m_frameSize;
    std::optional<QRectF> m_draftRect;
};

} // namespace Veilshot
