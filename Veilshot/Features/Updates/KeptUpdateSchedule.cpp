#include "Veilshot/Features/Updates/KeptUpdateSchedule.h"

#include "Veilshot/Platform/Clock.h"
#include "Veilshot/Platform/UserDefaults.h"

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

const QString lastCheckKey = u"lastUpdateCheck"_s;

} // namespace

UpdateSchedule keptUpdateSchedule(UserDefaults& defaults, const Clock& clock) {
    return {
        .now = [&clock] { return clock.now(); },
        .lastCheck = [&defaults]() -> std::optional<QDateTime> {
            const auto text = defaults.text(lastCheckKey);
            return text ? std::optional(QDateTime::fromString(*text, Qt::ISODate)) : std::nullopt;
        },
        .setLastCheck =
            [&defaults](const QDateTime& moment) {
                defaults.setText(lastCheckKey, moment.toString(Qt::ISODate));
            },
    };
}

} // namespace Veilshot
