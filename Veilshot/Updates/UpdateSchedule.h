#pragma once

#include <QDateTime>
#include <chrono>
#include <functional>
#include <optional>

namespace Veilshot {

/// When to ask without being told to, by a clock and a memory that are given. All moments are in UTC.
struct UpdateSchedule {
    static constexpr std::chrono::hours period{24};

    std::function<QDateTime()> now;
    /// When a check was last begun, in this or an earlier run; nothing if never.
    std::function<std::optional<QDateTime>()> lastCheck;
    std::function<void(const QDateTime&)> setLastCheck;

    /// Whether a period has passed since the last check. Also when that is said to be yet to come, as after
    /// the clock was set back: waiting for it could take years.
    bool isDue() const;
};

} // namespace Veilshot
