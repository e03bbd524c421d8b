#pragma once

#include "Veilshot/Features/Editor/EditorStore.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QtQmlIntegration>

namespace Veilshot {

/// Active for a moment whenever a scan ends with something found.
class RegionReveal : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Veilshot::EditorStore* store READ store WRITE setStore NOTIFY storeChanged REQUIRED)
    Q_PROPERTY(bool isActive READ isActive NOTIFY isActiveChanged)

public:
    explicit RegionReveal(QObject* parent = nullptr);

    EditorStore* store() const { return m_store; }
    void setStore(EditorStore* store);
    bool isActive() const { return m_end.isActive(); }

Q_SIGNALS:
    void storeChanged();
    void isActiveChanged();

private:
    void followStage();

    QPointer<EditorStore> m_store;
    EditorStore::Stage m_stage = EditorStore::Stage::Empty;
    QTimer m_end;
};

} // namespace Veilshot
