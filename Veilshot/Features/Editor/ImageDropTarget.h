#pragma once

#include "Veilshot/Features/Editor/EditorStore.h"
#include "Veilshot/Features/Editor/ImageDropArea.h"

#include <QPointer>
#include <QtQmlIntegration>

namespace Veilshot {

/// Hands what is dropped to the session.
class ImageDropTarget : public ImageDropArea {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Veilshot::EditorStore* store MEMBER m_store NOTIFY storeChanged REQUIRED)

public:
    using ImageDropArea::ImageDropArea;

Q_SIGNALS:
    void storeChanged();

private:
    bool drop(const ItemProviders& items) override { return m_store && m_store->load(items, {}); }

    QPointer<EditorStore> m_store;
};

} // namespace Veilshot
