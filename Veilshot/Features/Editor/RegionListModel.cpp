#include "Veilshot/Features/Editor/RegionListModel.h"

#include <QSet>
#include <algorithm>

namespace Veilshot {

void RegionListModel::setStore(EditorStore* store) {
    if (store == m_store)
        return;
    if (m_store)
        disconnect(m_store, nullptr, this, nullptr);
    m_store = store;
    if (store) {
        connect(store, &EditorStore::regionsChanged, this, &RegionListModel::update);
        connect(store, &EditorStore::highlightedRegionIDChanged, this, &RegionListModel::updateHighlight);
        connect(store, &QObject::destroyed, this, &RegionListModel::update);
    }
    update();
    updateHighlight();
    Q_EMIT storeChanged();
}

void RegionListModel::setSelection(Selection selection) {
    if (selection == m_selection)
        return;
    m_selection = selection;
    update();
    Q_EMIT selectionChanged();
}

int RegionListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant RegionListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const SensitiveRegion& region = m_rows[size_t(index.row())];
    const NormalizedRect& rect = region.normalizedRect();
    switch (role) {
    case RegionID:
        return region.id();
    case Kind:
        return rawValue(region.kind());
    case SingularLabel:
        return singularLabel(region.kind());
    case LocationLabel:
        return region.locationLabel();
    case NormalizedRectangle:
        return QRectF(rect.x, rect.y, rect.width, rect.height);
    case IsHighlighted:
        return region.id() == m_highlightedID;
    default:
        return {};
    }
}

QHash<int, QByteArray> RegionListModel::roleNames() const {
    return {{RegionID, "regionID"},
            {Kind, "kind"},
            {SingularLabel, "singularLabel"},
            {LocationLabel, "locationLabel"},
            {NormalizedRectangle, "normalizedRect"},
            {IsHighlighted, "isHighlighted"}};
}

SensitiveRegions RegionListModel::selectedRegions() const {
    if (!m_store)
        return {};
    switch (m_selection) {
    case Selection::Detected:
        return m_store->detectedRegions();
    case Selection::Custom:
        return m_store->customRegions();
    case Selection::All:
        break;
    }
    return m_store->regions();
}

void RegionListModel::update() {
    const SensitiveRegions next = selectedRegions();
    // First what goes, then, from the top, what comes. A row that moved goes and comes.
    QSet<QUuid> staying;
    for (const SensitiveRegion& region : next)
        staying.insert(region.id());
    const auto remove = [&](size_t row) {
        beginRemoveRows({}, int(row), int(row));
        m_rows.erase(m_rows.begin() + std::ptrdiff_t(row));
        endRemoveRows();
    };
    for (size_t row = m_rows.size(); row-- > 0;) {
        if (!staying.contains(m_rows[row].id()))
            remove(row);
    }
    for (size_t row = 0; row < next.size(); ++row) {
        if (row < m_rows.size() && m_rows[row] == next[row])
            continue;
        const auto elsewhere = std::ranges::find(m_rows, next[row].id(), &SensitiveRegion::id);
        if (elsewhere != m_rows.end())
            remove(size_t(elsewhere - m_rows.begin()));
        beginInsertRows({}, int(row), int(row));
        m_rows.insert(m_rows.begin() + std::ptrdiff_t(row), next[row]);
        endInsertRows();
    }
}

void RegionListModel::updateHighlight() {
    const QUuid before = std::exchange(m_highlightedID, m_store ? m_store->highlightedRegionID() : QUuid());
    if (before == m_highlightedID)
        return;
    for (size_t row = 0; row < m_rows.size(); ++row) {
        if (m_rows[row].id() == before || m_rows[row].id() == m_highlightedID)
            Q_EMIT dataChanged(index(int(row)), index(int(row)), {IsHighlighted});
    }
}

} // namespace Veilshot
