#include "Veilshot/DesignSystem/ShadowImage.h"

#include <cmath>
#include <gmock/gmock.h>

namespace Veilshot {
namespace {

TEST(ShadowImage, FadesAtItsEdgeAsAGaussianOfHalfTheRadius) {
    for (int ratio : {1, 2}) {
        const ShadowImage shadow = ShadowImage::make({{100, 60}, 6, 8, QColor(255, 0, 0, 128), ratio});
        const int middle = shadow.image.width() / 2;
        for (int row = 0; row <= 2 * shadow.margin * ratio; ++row) {
            const double inside = (row + 0.5) / ratio - shadow.margin;
            const QRgb pixel = shadow.image.pixel(middle, row);
            EXPECT_NEAR(qAlpha(pixel), 128 * std::erfc(-inside / 4 / std::sqrt(2)) / 2, 1.5) << inside;
            EXPECT_LE(qGreen(pixel) + qBlue(pixel), 0);
        }
    }
}

TEST(ShadowImage, StretchesWhereItIsLong) {
    const auto make = [](qreal width) { return ShadowImage::make({{width, 28}, 14, 8, Qt::black, 1}); };
    const ShadowImage pill = make(100);
    EXPECT_EQ(pill.image, make(2000).image);
    const int left = pill.horizontalPadding, right = pill.image.width() - left - 1;
    ASSERT_LE(left, right);
    for (int y = 0; y < pill.image.height(); ++y)
        EXPECT_NEAR(qAlpha(pill.image.pixel(left, y)), qAlpha(pill.image.pixel(right, y)), 1);
}

} // namespace
} // namespace Veilshot
