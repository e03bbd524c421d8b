#include "Veilshot/App/LastWindow.h"

namespace Veilshot {

LastWindowPlan planAfterLastWindow(const WaysBack& ways) {
    if (ways.hasTrayHost || ways.shortcut == WaysBack::Shortcut::working)
        return LastWindowPlan::stay;
    if (ways.shortcut == WaysBack::Shortcut::pending)
        return LastWindowPlan::wait;
    return ways.isMainWindowHeldBack ? LastWindowPlan::showMainWindow : LastWindowPlan::quit;
}

} // namespace Veilshot
