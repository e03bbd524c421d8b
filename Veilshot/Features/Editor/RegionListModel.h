#pragma once

#include "Veilshot/Features/Editor/EditorStore.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QtQmlIntegration>

namespace Veilshot {

/// The store's areas as rows, in the store's order. A row that stays keeps its delegate. Roles:
///  - regionID: QUuid
///  - kind: the kind's raw value
///  - singularLabel, locationLabel: texts
///  - normalizedRect: QRectF with its origin at the bottom left, see NormalizedRect
///  - isHighlighted: whether it is the store's highlighted area
class RegionListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Veilshot::EditorStore* store READ store WRITE setStore NOTIFY storeChanged REQUIRED)
    Q_PROPERTY(Selection selection READ selection WRITE setSelection NOTIFY selectionChanged)

public:
    enum class Selection { All, Detected, Custom };
    Q_ENUM(Selection)
    enum Role {
        RegionID = Qt::UserRole,
        Kind,
        SingularLabel,
        LocationLabel,
        NormalizedRectangle,
        IsHighlighted
    };

    using QAbstractListModel::QAbstractListModel;

    EditorStore* store() const { return m_store; }
    void setStore(EditorStore* store);
    Selection selection() const { return m_selection; }
    void setSelection(Selection selection);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void storeChanged();
    void selectionChanged();

private:
    SensitiveRegions selectedRegions() const;
    void update();
    void updateHighlight();

    QPointer<EditorStore> m_store;
    Selection m_selection = Selection::All;
    SensitiveRegions m_rows;
    QUuid m_highlightedID;
};

} // namespace Veilshot
