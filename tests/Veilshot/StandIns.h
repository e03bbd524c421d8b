#pragma once

#include "Veilshot/Platform/Clock.h"
#include "Veilshot/Platform/FilePanel.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <algorithm>
#include <vector>

/// What stands in for the desktop and the time where a test wants to be their master.
namespace Veilshot::StandIns {

/// Runs the event loop until the condition holds. False if it does not within half a minute.
template<typename Condition>
bool waitUntil(Condition condition) {
    QElapsedTimer timer;
    timer.start();
    QTimer wake; // to look again, since not every condition comes with an event
    wake.start(20);
    while (!condition()) {
        if (timer.hasExpired(30'000))
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents);
    }
    return true;
}

/// A clock that stands still until it is moved.
class ManualClock : public Clock {
public:
    QDateTime now() const override { return m_now; }

    void callAfter(std::chrono::milliseconds delay, QObject* context,
                   std::function<void()> call) const override {
        m_calls.push_back({m_now.addMSecs(delay.count()), context, std::move(call)});
    }

    void advance(std::chrono::milliseconds duration) {
        m_now = m_now.addMSecs(duration.count());
        std::vector<Call> due;
        std::erase_if(m_calls, [&](const Call& call) {
            const bool isDue = call.moment <= m_now;
            if (isDue)
                due.push_back(call);
            return isDue;
        });
        for (const Call& call : due) {
            if (call.context)
                call.action();
        }
    }

private:
    struct Call {
        QDateTime moment;
        QPointer<QObject> context;
        std::function<void()> action;
    };

    QDateTime m_now = QDateTime::fromMSecsSinceEpoch(1'790'000'000'123, Qt::UTC);
    mutable std::vector<Call> m_calls;
};

/// A person who always chooses the same file, or none.
struct AnsweringPanel : FilePanel {
    std::optional<QUrl> answer;
    std::function<void()> meanwhile = [] {};

    std::optional<QUrl> chooseDestination(const Destination&) override {
        meanwhile();
        return answer;
    }
    std::optional<QUrl> chooseImage(const QString&) override {
        meanwhile();
        return answer;
    }
};

} // namespace Veilshot::StandIns
