#include "Veilshot/Features/Onboarding/OnboardingFlow.h"

#include "tests/Veilshot/StandIns.h"

#include <gmock/gmock.h>

namespace Veilshot {
namespace {

TEST(OnboardingFlow, KnowsTheDirectionBeforeThePageChanges) {
    OnboardingFlow flow;
    const auto arrives = [&](OnboardingStep step) {
        return StandIns::waitUntil([&] { return flow.step() == step; });
    };
    flow.goBack(); // there is nothing before the first
    flow.advance();
    ASSERT_TRUE(arrives(OnboardingStep::Detection));
    EXPECT_GT(flow.insertionOffset(), 0);
    OnboardingStep stepAtTheTurn{};
    QObject::connect(&flow, &OnboardingFlow::isMovingForwardChanged, [&] { stepAtTheTurn = flow.step(); });
    flow.goBack();
    EXPECT_EQ(stepAtTheTurn, OnboardingStep::Detection);
    // It comes from where the other one would have gone.
    EXPECT_LT(flow.insertionOffset(), 0);
    EXPECT_EQ(flow.removalOffset(), -flow.insertionOffset());
    flow.goBack(); // within the same turn
    ASSERT_TRUE(arrives(OnboardingStep::Welcome));
}

} // namespace
} // namespace Veilshot
