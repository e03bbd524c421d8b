#include "VeilshotCore/Analysis/PeopleSearch/BodyEstimate.h"

#include <gmock/gmock.h>

namespace Veilshot {

namespace {

struct Case {
    const char* description;
    QRectF face;
    QRectF photo;
    std::optional<QRectF> body;
};

} // namespace

TEST(BodyEstimateTest, ReachesFromTheHairToTheKneesButNotOutOfThePhotograph) {
    const Case cases[] = {
        {"whole body", {500, 200, 100, 100}, {0, 0, 2000, 2000}, QRectF(380, 150, 340, 800)},
        {"the larger side counts", {500, 200, 80, 100}, {0, 0, 2000, 2000}, QRectF(370, 150, 340, 800)},
        {"clipped on every side", {120, 120, 100, 100}, {100, 100, 150, 400}, QRectF(100, 100, 150, 400)},
        {"just enough below the chin", {50, 50, 100, 100}, {0, 0, 200, 300}, QRectF(0, 0, 200, 300)},
        {"avatar of 40 pixels", {10, 8, 20, 20}, {0, 0, 40, 40}, std::nullopt},
        {"empty face", {10, 10, 0, 0}, {0, 0, 40, 40}, std::nullopt},
        {"face beside the photograph", {500, 10, 10, 10}, {0, 0, 40, 400}, std::nullopt},
    };
    for (const Case& row : cases)
        EXPECT_EQ(estimatedBody(row.face, row.photo), row.body) << row.description;
}

} // namespace Veilshot
