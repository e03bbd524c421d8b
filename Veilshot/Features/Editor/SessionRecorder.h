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

    /// Does nothing while the history is switched off.
    void record(const QImage& bitmap, qint64 regionCount);

private:
    struct Copy {
        QImage bitmap;
        qint64 regionCount;
    };

    QPointer<HistoryStore> m_history;
    std::optional<QUuid> m_historyEntryID;
    std::optional<Copy> m_waiting;
    bool m_isRecording = false;
};

} // namespace Veilshot
