#include "VeilshotCore/Analysis/PeopleSearch/FaceConfidence.h"

#include <gmock/gmock.h>

namespace Veilshot {

TEST(FaceConfidenceTest, RisesWithEveryKindOfEvidenceAndStaysAProbability) {
    const FaceEvidence weak{-0.3, 0, 0, 30};
    EXPECT_GT(faceConfidence({0.1, 0, 0, 30}), faceConfidence(weak));
    EXPECT_GT(faceConfidence({-0.3, 5, 0, 30}), faceConfidence(weak));
    EXPECT_GT(faceConfidence({-0.3, 0, 5, 30}), faceConfidence(weak));
    EXPECT_GT(faceConfidence({-0.3, 0, 0, 60}), faceConfidence(weak));
    EXPECT_GT(faceConfidence({-100, 0, 0, 1}), -1e-9);
    EXPECT_LE(faceConfidence({100, 100000, 100000, 100000}), 1);
}

TEST(FaceConfidenceTest, IsUsableForAWeakHitOnlyWithSupport) {
    EXPECT_LT(faceConfidence({-0.4, 0, 0, 20}), 0.3);
    EXPECT_GT(faceConfidence({-0.4, 8, 4, 20}), 0.3);
}

} // namespace Veilshot
