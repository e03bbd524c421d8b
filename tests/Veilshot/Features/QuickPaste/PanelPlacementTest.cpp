#include "Veilshot/Features/QuickPaste/PanelPlacement.h"

#include <gmock/gmock.h>

namespace Veilshot {
namespace {

TEST(PanelPlacementTest, CentresThePanel72AboveTheBottomOfTheUsableArea) {
    for (const auto& [usableArea, origin] :
         {std::pair(QRect(0, 0, 1400, 900), QPoint(460, 588)), // the whole screen
          {{80, 30, 1320, 870}, {500, 588}},                   // beside a dock, below a bar
          {{-1920, -200, 1920, 1080}, {-1200, 568}}})          // left of the first screen and above
        EXPECT_EQ(PanelPlacement::origin(usableArea, {480, 240}), origin);
}

} // namespace
} // namespace Veilshot
