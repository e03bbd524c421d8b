#include "VeilshotCore/Models/NormalizedRect.h"

#include <gmock/gmock.h>
#include <limits>

namespace Veilshot {
namespace {

TEST(NormalizedRect, CoversEveryPixelThatItTouches) {
    struct Row {
        NormalizedRect rect;
        QSize image;
        QRect pixels;
    };
    const Row rows[] = {
        {{0, 0, 1, 1}, {640, 480}, {0, 0, 640, 480}},
        {{0.5, 0.5, 0.001, 0.001}, {1000, 1000}, {500, 499, 1, 1}},
        {{0.25, 0.25, 0.5, 0.5}, {8, 8}, {2, 2, 4, 4}},
        {{0.26, 0.26, 0.48, 0.48}, {8, 8}, {2, 2, 4, 4}},
        {{0.1, 0, 0.1, 0.1}, {10, 10}, {1, 9, 1, 1}},
        {{-0.5, 0.9, 1, 1}, {10, 10}, {0, 0, 5, 1}},
        {{0.2, 0.2, 0.0001, 0.0001}, {1, 20000}, {0, 15998, 1, 2}},
        {{1.2, 0, 0.5, 0.5}, {10, 10}, {}},
        {{0.75, 0.75, -0.5, -0.5}, {8, 8}, {2, 2, 4, 4}},
        {{0.5, 0.5, 0, 0}, {9, 9}, {4, 4, 1, 1}},
        {{0, 0, std::numeric_limits<double>::quiet_NaN(), 1}, {9, 9}, {}},
        {{0, -1e300, 1e300, 2e300}, {9, 9}, {0, 0, 9, 9}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.rect.toCoveredPixels(row.image), row.pixels)
            << row.rect.x << ' ' << row.rect.y << ' ' << row.rect.width << ' ' << row.rect.height;
}

TEST(NormalizedRect, FlipsBetweenTopLeftPixelsAndBottomLeftFractions) {
    const QRectF pixels(100, 50, 200, 25);
    const NormalizedRect rect = NormalizedRect::fromPixels(pixels, {400, 200});
    EXPECT_EQ(rect, (NormalizedRect{0.25, 0.625, 0.5, 0.125}));
    EXPECT_EQ(rect.toPixels({400, 200}), pixels);
}

TEST(NormalizedRect, IntersectionOfDisjointOrTouchingRectanglesIsEmpty) {
    const NormalizedRect left{0, 0, 0.5, 1};
    EXPECT_TRUE(left.intersected({0.6, 0, 0.4, 1}).isEmpty());
    EXPECT_TRUE(left.intersected({0.5, 0, 0.5, 1}).isEmpty());
    EXPECT_EQ(left.intersected({0.25, 0.5, 0.5, 1}), (NormalizedRect{0.25, 0.5, 0.25, 0.5}));
    EXPECT_EQ(left.united({}), left);
    EXPECT_EQ((NormalizedRect{0.75, 0.5, -0.25, -0.25}.standardized()),
              (NormalizedRect{0.5, 0.25, 0.25, 0.25}));
}

} // namespace
} // namespace Veilshot
