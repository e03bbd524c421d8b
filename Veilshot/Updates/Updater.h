#pragma once

#include "Veilshot/Updates/UpdateConfiguration.h"
#include "Veilshot/Updates/UpdateSchedule.h"
#include "Veilshot/Updates/UpdateState.h"

#include <QObject>
#include <QTimer>
#include <chrono>
#include <memory>
#include <optional>

namespace Veilshot {

class FeedDownload;

/// Finds out whether there is a newer version, when the user asks and once a day, and says where to get it.
/// It installs nothing. Without a configuration it never does anything. Main thread only.
///
/// A check that the user asked for is seen from its begin to its result; one of its own only if it has found
/// a newer version.
class Updater : public QObject {
    Q_OBJECT
    /// False before the start, without a configuration, and while a check runs or its result is shown.
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY canCheckForUpdatesChanged)

public:
    struct Limits {
        qint64 feedBytes = 1'000'000;
        std::chrono::milliseconds downloadDuration{30'000};
        /// How often it looks whether a check is due. Timers stand still while the machine sleeps, so one
        /// that waits for a whole day would come late.
        std::chrono::milliseconds lookInterval{std::chrono::hours(1)};
    };

    Updater(std::optional<UpdateConfiguration> configuration, UpdateSchedule schedule, Limits limits,
            QObject* parent = nullptr);
    Updater(std::optional<UpdateConfiguration> configuration, UpdateSchedule schedule,
            QObject* parent = nullptr);
    ~Updater() override;

    /// From now on checks can be made; the first at once if it is due.
    void start();

    bool canCheckForUpdates() const { return m_canCheckForUpdates; }
    const UpdateState& state() const { return m_state; }

    /// Nothing happens while `canCheckForUpdates` is false.
    void checkForUpdates();
    /// Ends a check that is shown, without a result.
    void cancel();
    /// Takes a result away.
    void dismiss();

Q_SIGNALS:
    void canCheckForUpdatesChanged();
    void stateChanged();

private:
    enum class Initiator { user, schedule };

    void checkIfDue();
    void check(Initiator initiator);
    void finish(Initiator initiator, UpdateState result);
    void endDownload();
    void change(UpdateState state);
    UpdateState examine(const QByteArray& feed) const;

    std::optional<UpdateConfiguration> m_configuration;
    UpdateSchedule m_schedule;
    Limits m_limits;
    QTimer m_lookTimer;
    UpdateState m_state;
    std::unique_ptr<FeedDownload> m_download;
    bool m_isStarted = false;
    bool m_canCheckForUpdates = false;
};

} // namespace Veilshot
