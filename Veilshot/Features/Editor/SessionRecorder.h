#pragma once

#include <QImage>
#include <QPointer>
#include <QUuid>
#include <memory>
#include <optional>

namespace Veilshot {

class HistoryStore;

/// Keeps the one history entry of an editing session: the first copy adds it, every later one takes its
/// place. Copies that come while one is being written wait, and only the last of them is written, so that
/// quick presses of a key do not fill the history with the same picture. A recorder finishes its work when
/// its session is over.
///
/// Main thread only. Made by std::make_shared.
class SessionRecorder : public std::enable_shared_from_this<SessionRecorder> {
public:
    /// Null: nothing is ever recorded.
    explicit SessionRecorder(HistoryStore* history);

    /// The place of a copy among those of the session. Taken when the user asks for it, because an export is
    /// known to have succeeded only later.
    using Turn = quint64;
    Turn takeTurn() { return ++m_latestTurn; }

    /// Does nothing while the history is switched off, nor when a copy with a later turn came before.
    void record(Turn turn, const QImage& bitmap, qint64 regionCount);

private:
    struct Copy {
        QImage bitmap;
        qint64 regionCount;
    };
    void record(const Copy& copy);

    QPointer<HistoryStore> m_history;
    std::optional<QUuid> m_historyEntryID;
    std::optional<Copy> m_waiting;
    Turn m_latestTurn = 0;
    Turn m_recordedTurn = 0;
    bool m_isRecording = false;
};

} // namespace Veilshot
