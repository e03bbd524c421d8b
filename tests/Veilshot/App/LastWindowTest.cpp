#include "Veilshot/App/LastWindow.h"

#include <gmock/gmock.h>

namespace Veilshot {
namespace {

using Shortcut = WaysBack::Shortcut;

TEST(LastWindow, NobodyIsLeftWithAProcessOutOfReach) {
    for (const bool isHeldBack : {false, true}) {
        for (const Shortcut shortcut : {Shortcut::pending, Shortcut::working, Shortcut::none}) {
            EXPECT_EQ(planAfterLastWindow({true, shortcut, isHeldBack}), LastWindowPlan::stay);
        }
        EXPECT_EQ(planAfterLastWindow({false, Shortcut::working, isHeldBack}), LastWindowPlan::stay);
        EXPECT_EQ(planAfterLastWindow({false, Shortcut::pending, isHeldBack}), LastWindowPlan::wait);
    }
    EXPECT_EQ(planAfterLastWindow({false, Shortcut::none, false}), LastWindowPlan::quit);
    EXPECT_EQ(planAfterLastWindow({false, Shortcut::none, true}), LastWindowPlan::showMainWindow);
}

} // namespace
} // namespace Veilshot
