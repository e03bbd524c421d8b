#include "Veilshot/Features/QuickPaste/PanelPlacement.h"

#include <gmock/gmock.h>

namespace Veilshot {
namespace {

TEST(PanelPlacementTest, CentresThePanel72AboveTheBottomOfTheUsableArea) {
    struct Row {
        const char* screen;
        QRect usableArea;
        QPoint origin;
    };
    for (const Row& row :
         {Row{"whole", {0, 0, 1400, 900}, {460, 588}}, Row{"bar above", {0, 30, 1400, 870}, {460, 588}},
          Row{"dock at the left", {80, 0, 1320, 900}, {500, 588}},
          Row{"second, left of and above the first", {-1920, -200, 1920, 1080}, {-1200, 568}}})
        EXPECT_EQ(PanelPlacement::origin(row.usableArea, {480, 240}), row.origin) << row.screen;
}

} // namespace
} // namespace Veilshot
