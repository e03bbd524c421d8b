#include "VeilshotCore/Models/SensitiveRegion.h"

#include <gmock/gmock.h>

namespace Veilshot {
namespace {

QString locationOfCentre(double x, double y) {
    return SensitiveRegion(QUuid::createUuid(), {x, y, 0, 0}, SensitiveKind::name).locationLabel();
}

TEST(SensitiveRegion, SaysInWhichNinthItsCentreLies) {
    EXPECT_EQ(locationOfCentre(0.5, 0.9), u"Top");
    EXPECT_EQ(locationOfCentre(0.1, 0.1), u"Bottom left");
    EXPECT_EQ(locationOfCentre(0.9, 0.5), u"Middle right");
    EXPECT_EQ(locationOfCentre(0.1, 0.9), u"Top left");
    EXPECT_EQ(locationOfCentre(1.0 / 3, 2.0 / 3), u"Middle");
    EXPECT_EQ(locationOfCentre(2.0 / 3, 1.0 / 3), u"Middle");
}

} // namespace
} // namespace Veilshot
