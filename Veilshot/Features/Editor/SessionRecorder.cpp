#include "Veilshot/Features/Editor/SessionRecorder.h"

#include "Veilshot/Features/History/HistoryStore.h"

namespace Veilshot {

SessionRecorder::SessionRecorder(HistoryStore* history) : m_history(history) {}

void SessionRecorder::record(const QImage& bitmap, qint64 regionCount) {
    if (!m_history || !m_history->isEnabled())
        return;
    if (m_isRecording) {
        m_waiting = Copy{bitmap, regionCount};
        return;
    }
    m_isRecording = true;
    // Continues in the main thread, where the history finishes, and at once, also when the application ends.
    m_history->record(bitmap, regionCount, m_historyEntryID)
        .then([self = shared_from_this()](std::optional<QUuid> id) {
            self->m_isRecording = false;
            if (id)
                self->m_historyEntryID = id;
            if (const auto next = std::exchange(self->m_waiting, std::nullopt))
                self->record(next->bitmap, next->regionCount);
        });
}

} // namespace Veilshot
