#include "Veilshot/Features/Editor/SessionRecorder.h"

#include "Veilshot/Features/History/HistoryStore.h"

#include <utility>

namespace Veilshot {

SessionRecorder::SessionRecorder(HistoryStore* history) : m_history(history) {}

void SessionRecorder::record(Turn turn, const QImage& bitmap, qint64 regionCount) {
    if (turn < m_recordedTurn)
        return;
    m_recordedTurn = turn;
    record({bitmap, regionCount});
}

void SessionRecorder::record(const Copy& copy) {
    if (!m_history || !m_history->isEnabled())
        return;
    if (m_isRecording) {
        m_waiting = copy;
        return;
    }
    m_isRecording = true;
    // Continues in the main thread, where the history finishes, and at once, also when the application ends.
    m_history->record(copy.bitmap, copy.regionCount, m_historyEntryID)
        .then([self = shared_from_this()](std::optional<QUuid> id) {
            self->m_isRecording = false;
            if (id)
                self->m_historyEntryID = id;
            if (const auto next = std::exchange(self->m_waiting, std::nullopt))
                self->record(*next);
        });
}

} // namespace Veilshot
