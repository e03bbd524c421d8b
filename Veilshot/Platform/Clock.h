#pragma once

#include <QDateTime>
#include <chrono>
#include <functional>

class QObject;

namespace Veilshot {

/// The time, as far as the application acts upon it.
class Clock {
public:
    virtual ~Clock() = default;

    /// The moment, in UTC.
    virtual QDateTime now() const = 0;
    /// Calls once, in the thread of `context`, and not at all if `context` is gone by then.
    virtual void callAfter(std::chrono::milliseconds delay, QObject* context,
                           std::function<void()> call) const = 0;
};

class SystemClock : public Clock {
public:
    QDateTime now() const override;
    void callAfter(std::chrono::milliseconds delay, QObject* context,
                   std::function<void()> call) const override;
};

} // namespace Veilshot
