#include "VeilshotCore/Analysis/PeopleSearch/OverlappingTiles.h"

#include <gmock/gmock.h>

using namespace testing;

namespace Veilshot {

TEST(OverlappingTilesTest, HoldEverythingUpToTheOverlapWholeInOneTile) {
    constexpr int longestSide = 100;
    constexpr int overlap = 30;
    for (const QRect area :
         {QRect(5, 7, 100, 100), QRect(5, 7, 101, 99), QRect(0, 0, 171, 457), QRect(3, 3, 1000, 1)}) {
        const std::vector<QRect> tiles = overlappingTiles(area, longestSide, overlap);
        for (const QRect& tile : tiles) {
            EXPECT_LE(std::max(tile.width(), tile.height()), longestSide);
            EXPECT_TRUE(area.contains(tile));
        }
        const QSize thing(std::min(overlap, area.width()), std::min(overlap, area.height()));
        for (int y = area.top(); y + thing.height() - 1 <= area.bottom(); ++y) {
            for (int x = area.left(); x + thing.width() - 1 <= area.right(); ++x)
                ASSERT_THAT(tiles, Contains(Truly([&](const QRect& tile) {
                                return tile.contains(QRect(QPoint(x, y), thing));
                            })));
        }
    }
    EXPECT_THAT(overlappingTiles(QRect(), longestSide, overlap), IsEmpty());
}

} // namespace Veilshot
