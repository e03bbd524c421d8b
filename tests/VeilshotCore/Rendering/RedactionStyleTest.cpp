#include "VeilshotCore/Rendering/RedactionStyle.h"

#include <gmock/gmock.h>

namespace Veilshot {
namespace {

TEST(RedactionStyle, RawValuesNameEveryStyleAndAreCaseSensitive) {
    EXPECT_THAT(allRedactionStyles, testing::ElementsAre(RedactionStyle::smooth, RedactionStyle::pixelate,
                                                         RedactionStyle::blackout));
    for (const RedactionStyle style : allRedactionStyles)
        EXPECT_EQ(redactionStyleFromRawValue(rawValue(style)), style);
    EXPECT_EQ(redactionStyleFromRawValue(u"pixelate"), RedactionStyle::pixelate);
    EXPECT_EQ(redactionStyleFromRawValue(u"Pixelate"), std::nullopt);
    EXPECT_EQ(redactionStyleFromRawValue(u""), std::nullopt);
}

TEST(RedactionStyle, TextsBelongToTheirStyle) {
    EXPECT_EQ(label(RedactionStyle::smooth), u"Smooth blur");
    EXPECT_EQ(systemImage(RedactionStyle::pixelate), u"square.grid.3x3.fill");
    EXPECT_EQ(intensityLabel(RedactionStyle::pixelate), u"Pixel size");
    EXPECT_EQ(intensityLabel(RedactionStyle::blackout), u"Strength");
}

TEST(RedactionStyle, OnlyBlackoutIgnoresTheIntensity) {
    EXPECT_TRUE(usesIntensity(RedactionStyle::smooth));
    EXPECT_TRUE(usesIntensity(RedactionStyle::pixelate));
    EXPECT_FALSE(usesIntensity(RedactionStyle::blackout));
}

} // namespace
} // namespace Veilshot
