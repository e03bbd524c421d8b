#include "Veilshot/Features/Editor/RegionReveal.h"

namespace Veilshot {

RegionReveal::RegionReveal(QObject* parent) : QObject(parent) {
    m_end.setSingleShot(true);
    m_end.setInterval(1400);
    connect(&m_end, &QTimer::timeout, this, &RegionReveal::isActiveChanged);
}

void RegionReveal::setStore(EditorStore* store) {
    if (store == m_store)
        return;
    if (m_store)
        disconnect(m_store, nullptr, this, nullptr);
    m_store = store;
    if (store) {
        m_stage = store->stage();
        connect(store, &EditorStore::stageChanged, this, &RegionReveal::followStage);
    }
    Q_EMIT storeChanged();
}

void RegionReveal::followStage() {
    const auto before = std::exchange(m_stage, m_store->stage());
    if (m_stage != EditorStore::Stage::Ready && isActive()) {
        m_end.stop();
        Q_EMIT isActiveChanged();
    }
    if (before != EditorStore::Stage::Scanning || m_stage != EditorStore::Stage::Ready ||
        m_store->detectedRegions().empty())
        return;
    const bool wasActive = isActive();
    m_end.start();
    if (!wasActive)
        Q_EMIT isActiveChanged();
}

} // namespace Veilshot
