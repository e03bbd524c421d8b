#include "Veilshot/Updates/UpdateSchedule.h"

namespace Veilshot {

bool UpdateSchedule::isDue() const {
    const std::optional<QDateTime> last = lastCheck();
    if (!last || !last->isValid())
        return true;
    const std::chrono::milliseconds passed(last->msecsTo(now()));
    return passed.count() < 0 || passed >= period;
}

} // namespace Veilshot
