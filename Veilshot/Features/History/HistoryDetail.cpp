#include "Veilshot/Features/History/HistoryDetail.h"

#include "Veilshot/Features/History/HistoryTexts.h"

#include <algorithm>

using namespace std::chrono_literals;

namespace Veilshot {

void HistoryDetail::setHistory(HistoryStore* history) {
    m_history = history;
    Q_EMIT entryChanged();
}

void HistoryDetail::setActions(HistoryActions* actions) {
    if (m_actions)
        m_actions->disconnect(this);
    m_actions = actions;
    if (actions) {
        connect(actions, &HistoryActions::copied, this, [this](const HistoryEntry& copied) {
            if (copied.id != m_entry.id || !m_history)
                return;
            setDidCopy(true);
            m_history->clock().callAfter(1500ms, this, [this] { setDidCopy(false); });
        });
    }
    Q_EMIT actionsChanged();
}

void HistoryDetail::setEntry(const HistoryEntry& entry) {
    m_entry = entry;
    setDidCopy(false);
    Q_EMIT entryChanged();
}

QString HistoryDetail::dateText() const {
    return HistoryTexts::dateWithTime(m_entry.createdAt.toLocalTime(), QLocale());
}

QString HistoryDetail::summary() const {
    return HistoryTexts::summary(m_entry);
}

QUrl HistoryDetail::imageURL() const {
    return m_history && !m_entry.id.isNull() ? m_history->imageURL(m_entry) : QUrl();
}

double HistoryDetail::imageHeight(double width) const {
    const double scale = width / double(std::max<qint64>(1, m_entry.pixelWidth));
    return double(m_entry.pixelHeight) * std::min(1.0, scale);
}

void HistoryDetail::setDidCopy(bool didCopy) {
    if (didCopy == m_didCopy)
        return;
    m_didCopy = didCopy;
    Q_EMIT didCopyChanged();
}

} // namespace Veilshot
