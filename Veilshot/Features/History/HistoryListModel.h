#pragma once

#include "Veilshot/Features/History/HistoryEntry.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QtQmlIntegration>

namespace Veilshot {

class HistoryStore;

/// The kept copies as rows for the strip, newest first. Rows come and go singly, so that a view can animate
/// them, and a copy that stays keeps its row.
class HistoryListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Veilshot::HistoryStore* history READ history WRITE setHistory NOTIFY historyChanged REQUIRED)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    /// What to ask before all copies are deleted.
    Q_PROPERTY(QString clearMessage READ clearMessage NOTIFY countChanged)

public:
    enum Role {
        EntryRole = Qt::UserRole,
        DateTextRole,
        AreasTextRole,
        AccessibleLabelRole,
        ThumbnailURLRole
    };

    using QAbstractListModel::QAbstractListModel;

    HistoryStore* history() const { return m_history; }
    void setHistory(HistoryStore* history);
    int count() const { return int(m_entries.size()); }
    QString clearMessage() const;
    /// Has the relative dates read again: nothing tells that time has passed.
    Q_INVOKABLE void refreshDates();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void historyChanged();
    void countChanged();

private:
    void update();

    QPointer<HistoryStore> m_history;
    HistoryEntries m_entries;
};

} // namespace Veilshot
