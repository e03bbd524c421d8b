#include "Veilshot/Features/Editor/PreviewGeometry.h"

#include "Veilshot/Features/Editor/AreaDrawing.h"
#include "tests/Veilshot/Features/Editor/PreparedStore.h"

namespace Veilshot {
namespace {

TEST(PreviewGeometry, FitsTheImageIntoTheMiddleOfTheSpace) {
    EXPECT_EQ(PreviewGeometry::fittedFrame({1000, 500}, {400, 400}), QRectF(0, 100, 400, 200));
    EXPECT_EQ(PreviewGeometry::fittedFrame({500, 1000}, {300, 400}), QRectF(50, 0, 200, 400));
    for (const auto& [image, space] : {std::pair(QSizeF(5, 0), QSizeF(9, 9)), {{5, 5}, {9, -3}}, {{}, {}}})
        EXPECT_EQ(PreviewGeometry::fittedFrame(image, space).size(), QSizeF(0, 0));
}

TEST(PreviewGeometry, TurnsAreasUpsideDown) {
    const QRectF nearTheTopLeft(40, 10, 80, 40);
    EXPECT_EQ(PreviewGeometry::normalized(nearTheTopLeft, {400, 200}), (NormalizedRect{0.1, 0.75, 0.2, 0.2}));
    EXPECT_EQ(PreviewGeometry::viewRect({0.1, 0.75, 0.2, 0.2}, {400, 200}), nearTheTopLeft);
}

struct AreaDrawingTest : testing::Test {
    StandIns::PreparedStore store;
    AreaDrawing drawing;

    void SetUp() override {
        store.scan(Qt::white, {200, 100});
        store->setAddingCustomBlur(true);
        drawing.setProperty("store", QVariant::fromValue(&*store));
        drawing.setProperty("frameSize", QSizeF(400, 200));
    }
    size_t areasAfterDrag(QPointF start, QPointF end) {
        drawing.drag(start, end);
        drawing.finish();
        return store->customRegions().size();
    }
};

TEST_F(AreaDrawingTest, AddsWhatWasDrawnInsideTheFrame) {
    drawing.drag({300, 150}, {350, 160});
    drawing.drag({300, 150}, {900, -40});
    EXPECT_EQ(drawing.draftRect(), QRectF(300, 0, 100, 150));
    drawing.finish();
    ASSERT_EQ(store->customRegions().size(), 1u);
    EXPECT_EQ(store->customRegions().front().normalizedRect(), (NormalizedRect{0.75, 0.25, 0.25, 0.75}));
    drawing.finish();
    EXPECT_EQ(areasAfterDrag({10, 10}, {14, 30}), 1u) << "no more than a twitch";
    EXPECT_EQ(areasAfterDrag({10, 10}, {15, 5}), 2u);
}

TEST_F(AreaDrawingTest, AddsNothingOutsideDrawingMode) {
    drawing.drag({0, 0}, {100, 100});
    store->setAddingCustomBlur(false);
    drawing.drag({0, 0}, {50, 50});
    EXPECT_EQ(drawing.draftRect(), QRectF(0, 0, 100, 100));
    drawing.finish();
    EXPECT_FALSE(drawing.hasDraft());
    EXPECT_EQ(areasAfterDrag({0, 0}, {100, 100}), 0u);
}

} // namespace
} // namespace Veilshot
