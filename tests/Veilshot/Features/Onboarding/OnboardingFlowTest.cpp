#include "Veilshot/Features/Onboarding/OnboardingFlow.h"

#include "tests/Veilshot/StandIns.h"

#include <gmock/gmock.h>

namespace Veilshot {
namespace {

struct OnboardingFlowTest : testing::Test {
    OnboardingFlow flow;
    int finishes = 0;

    void SetUp() override {
        QObject::connect(&flow, &OnboardingFlow::finished, [this] { ++finishes; });
    }
    bool arrives(OnboardingStep step) const {
        return StandIns::waitUntil([&] { return flow.step() == step; });
    }
};

TEST_F(OnboardingFlowTest, LeadsThroughEveryPageAndBackButNotBeyond) {
    flow.goBack();
    flow.advance();
    ASSERT_TRUE(arrives(OnboardingStep::Detection)) << "there was nothing before the first";
    for (auto step : {OnboardingStep::Privacy, OnboardingStep::QuickPaste, OnboardingStep::Ready}) {
        EXPECT_TRUE(flow.hasPrevious());
        flow.advance();
        ASSERT_TRUE(arrives(step));
    }
    EXPECT_EQ(finishes, 0);
    flow.advance();
    EXPECT_EQ(finishes, 1);
    EXPECT_EQ(flow.step(), OnboardingStep::Ready);
    for (int place = int(OnboardingStep::Ready); place-- > 0;) {
        flow.goBack();
        ASSERT_TRUE(arrives(OnboardingStep(place)));
    }
    EXPECT_FALSE(flow.hasPrevious());
}

TEST_F(OnboardingFlowTest, KnowsTheDirectionBeforeThePageChanges) {
    EXPECT_GT(flow.insertionOffset(), 0);
    flow.advance();
    ASSERT_TRUE(arrives(OnboardingStep::Detection));
    OnboardingStep stepAtTheTurn{};
    QObject::connect(&flow, &OnboardingFlow::isMovingForwardChanged, [&] { stepAtTheTurn = flow.step(); });
    flow.goBack();
    EXPECT_FALSE(flow.isMovingForward());
    EXPECT_EQ(stepAtTheTurn, OnboardingStep::Detection);
    EXPECT_EQ(flow.step(), OnboardingStep::Detection);
    // It comes from where the other one would have gone.
    EXPECT_LT(flow.insertionOffset(), 0);
    EXPECT_EQ(flow.removalOffset(), -flow.insertionOffset());
    flow.goBack(); // within the same turn
    ASSERT_TRUE(arrives(OnboardingStep::Welcome));
}

} // namespace
} // namespace Veilshot
