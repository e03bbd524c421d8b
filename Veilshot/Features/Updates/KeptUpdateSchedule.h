#pragma once

#include "Veilshot/Updates/UpdateSchedule.h"

namespace Veilshot {

class Clock;
class UserDefaults;

/// A schedule that remembers the last check between runs, under "lastUpdateCheck". Both must outlive it.
UpdateSchedule keptUpdateSchedule(UserDefaults& defaults, const Clock& clock);

} // namespace Veilshot
