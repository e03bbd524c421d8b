#include "Veilshot/Features/History/HistoryListModel.h"

#include "Veilshot/Features/History/HistoryStore.h"
#include "Veilshot/Features/History/HistoryTexts.h"

#include <algorithm>

namespace Veilshot {

void HistoryListModel::setHistory(HistoryStore* history) {
    if (history == m_history)
        return;
    if (m_history)
        m_history->disconnect(this);
    m_history = history;
    if (history)
        connect(history, &HistoryStore::entriesChanged, this, &HistoryListModel::update);
    update();
    Q_EMIT historyChanged();
}

QString HistoryListModel::clearMessage() const {
    return HistoryTexts::clearMessage(count());
}

void HistoryListModel::refreshDates() {
    if (!m_entries.empty())
        Q_EMIT dataChanged(index(0), index(count() - 1), {DateTextRole});
}

int HistoryListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant HistoryListModel::data(const QModelIndex& index, int role) const {
    if (!m_history || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const HistoryEntry& entry = m_entries[size_t(index.row())];
    switch (role) {
    case EntryRole:
        return QVariant::fromValue(entry);
    case DateTextRole:
        return HistoryTexts::relativeDate(entry.createdAt, m_history->clock().now().toLocalTime(), QLocale());
    case AreasTextRole:
        return HistoryTexts::areasHidden(entry.regionCount);
    case AccessibleLabelRole:
    case Qt::DisplayRole:
        return HistoryTexts::accessibleLabel(entry);
    case ThumbnailURLRole:
        return m_history->thumbnailURL(entry);
    default:
        return {};
    }
}

QHash<int, QByteArray> HistoryListModel::roleNames() const {
    return {{EntryRole, "entry"},
            {DateTextRole, "dateText"},
            {AreasTextRole, "areasText"},
            {AccessibleLabelRole, "accessibleLabel"},
            {ThumbnailURLRole, "thumbnailURL"}};
}

void HistoryListModel::update() {
    // A copy: the store may change again while a view reacts to one row.
    const HistoryEntries entries = m_history ? m_history->entries() : HistoryEntries();
    for (int row = count() - 1; row >= 0; --row) {
        if (std::ranges::find(entries, m_entries[size_t(row)]) == entries.end()) {
            beginRemoveRows({}, row, row);
            m_entries.erase(m_entries.begin() + row);
            endRemoveRows();
        }
    }
    // What stays keeps its order in the store, so that only new copies can be in the way.
    for (int row = 0; row < int(entries.size()); ++row) {
        const HistoryEntry& entry = entries[size_t(row)];
        if (row >= count() || m_entries[size_t(row)] != entry) {
            beginInsertRows({}, row, row);
            m_entries.insert(m_entries.begin() + row, entry);
            endInsertRows();
        }
    }
    Q_EMIT countChanged();
}

} // namespace Veilshot
