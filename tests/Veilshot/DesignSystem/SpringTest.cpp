#include "Veilshot/DesignSystem/Spring.h"

#include <cmath>
#include <gmock/gmock.h>
#include <numbers>

namespace Veilshot {
namespace {

TEST(Spring, MovesLikeAMassOnADampedSpring) {
    for (const auto& [spring, response, dampingFraction] : {std::tuple(Spring::smooth(), 0.35, 1.),
                                                            {Spring::snappy(), 0.2, 0.85},
                                                            {Spring::pressing(), 0.1, 0.85},
                                                            {Spring::entrance(), 0.7, 0.7}}) {
        const double frequency = 2 * std::numbers::pi / response;
        const double settlingTime = spring.settlingTime();
        constexpr double step = 1e-5;
        double position = 0, velocity = 0, furthest = 0;
        for (double time = 0; time < 1; time += step) {
            ASSERT_NEAR(spring.position(time), position, 5e-4) << "after " << time;
            ASSERT_TRUE(time < settlingTime || std::abs(1 - position) < 0.0015) << "after " << time;
            velocity +=
                step * (frequency * frequency * (1 - position) - 2 * dampingFraction * frequency * velocity);
            position += step * velocity;
            furthest = std::max(furthest, position);
        }
        // A smooth spring never goes too far, a snappy one does a little.
        EXPECT_EQ(furthest > 1, dampingFraction < 1);

        const QEasingCurve curve = spring.curve();
        EXPECT_EQ(curve.valueForProgress(1), 1);
        EXPECT_NEAR(curve.valueForProgress(0.3), spring.position(0.3 * spring.duration() / 1000), 0.01);
    }
}

} // namespace
} // namespace Veilshot
