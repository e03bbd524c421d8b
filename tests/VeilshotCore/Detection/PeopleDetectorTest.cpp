#include "VeilshotCore/Detection/PeopleDetector.h"

#include <cmath>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::IsEmpty;

namespace Veilshot {
namespace {

class StubAnalyzer : public PeopleAnalyzer {
public:
    AnalysisOutcome<PeopleObservations> outcome;
    AnalysisOutcome<PeopleObservations> analyze(const QImage&, const CancellationCheck&) const override {
        return outcome;
    }
};

std::vector<NormalizedRect> rects(const SensitiveRegions& regions) {
    std::vector<NormalizedRect> rects;
    for (const SensitiveRegion& region : regions) {
        EXPECT_EQ(region.kind(), SensitiveKind::person);
        rects.push_back(region.normalizedRect());
    }
    return rects;
}

MATCHER_P(IsNear, expected, "") {
    const NormalizedRect& actual = arg;
    return std::abs(actual.x - expected.x) < 1e-12 && std::abs(actual.y - expected.y) < 1e-12 &&
           std::abs(actual.width - expected.width) < 1e-12 &&
           std::abs(actual.height - expected.height) < 1e-12;
}

TEST(PeopleRegions, AreTheBodiesThenTheFacesThatNoBodyCovers) {
    const NormalizedRect body{0.1, 0.2, 0.2, 0.5};
    const NormalizedRect other{0.6, 0.9, 0.1, 0.1};
    const NormalizedRect inside{0.15, 0.6, 0.05, 0.05};
    const NormalizedRect stickingOut{0.1, 0.66, 0.05, 0.08}; // half of it above the body
    const NormalizedRect alone{0.5, 0.5, 0.1, 0.1};
    EXPECT_THAT(rects(PeopleDetector::regions({body, other}, {inside, stickingOut, alone})),
                testing::ElementsAre(IsNear(NormalizedRect{0.075, 0.18, 0.25, 0.54}),
                                     IsNear(NormalizedRect{0.575, 0.88, 0.15, 0.12}),
                                     IsNear(NormalizedRect{0.065, 0.615, 0.12, 0.17}),
                                     IsNear(NormalizedRect{0.465, 0.455, 0.17, 0.19})));
}

TEST(PeopleRegions, FoldAFaceIntoABodyFromThreeQuartersOn) {
    const NormalizedRect body{0, 0, 0.5, 0.5};
    EXPECT_EQ(PeopleDetector::regions({body}, {{0.25, 0.125, 0.3125, 0.125}}).size(), 1u); // 80 % inside
    EXPECT_EQ(PeopleDetector::regions({body}, {{0.3125, 0.125, 0.25, 0.125}}).size(), 1u); // 75 %
    EXPECT_EQ(PeopleDetector::regions({body}, {{0.375, 0.125, 0.25, 0.125}}).size(), 2u);  // 50 %
    EXPECT_EQ(PeopleDetector::regions({body}, {{0.25, 0.25, 0, 0.125}}).size(),
              2u); // without area: never covered
}

TEST(PeopleDetector, DropsWhatTheAnalyzerIsNotSureOf) {
    const auto analyzer = std::make_shared<StubAnalyzer>();
    const NormalizedRect left{0.1, 0.1, 0.2, 0.2};
    const NormalizedRect right{0.7, 0.7, 0.2, 0.2};
    analyzer->outcome =
        PeopleObservations{{{0.29f, left}}, {{0.3f, right}, {std::nextafter(0.3f, 0.f), left}}};
    EXPECT_THAT(rects(std::get<SensitiveRegions>(PeopleDetector(analyzer).detect({}).result())),
                testing::ElementsAre(IsNear(NormalizedRect{0.665, 0.655, 0.27, 0.29})));
}

TEST(PeopleDetector, PassesTheAnalyzersErrorOn) {
    const auto analyzer = std::make_shared<StubAnalyzer>();
    analyzer->outcome = AnalysisError{u"no cascades"_s};
    EXPECT_EQ(std::get<AnalysisError>(PeopleDetector(analyzer).detect({}).result()),
              AnalysisError{u"no cascades"_s});
}

} // namespace
} // namespace Veilshot
