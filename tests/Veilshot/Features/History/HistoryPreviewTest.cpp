#include "Veilshot/Features/History/HistoryPreview.h"

#include <gmock/gmock.h>

namespace Veilshot {
namespace {

TEST(HistoryPreview, FitsIntoTheLimitAndIsNeverEnlarged) {
    for (const auto& [image, preview] : {std::pair(QSize(2880, 1800), QSize(480, 300)),
                                         {{1000, 3000}, {160, 480}},
                                         {{300, 200}, {300, 200}},
                                         {{4000, 3}, {480, 1}}})
        EXPECT_EQ(HistoryPreview::previewSize(image, 480), preview) << image.width();
}

TEST(HistoryPreview, AveragesAllPixels) {
    // Five pixels to one: who only looks at neighbours of the middle one sees black or white.
    QImage chessboard(500, 250, QImage::Format_RGB32);
    for (int y = 0; y < chessboard.height(); ++y) {
        for (int x = 0; x < chessboard.width(); ++x)
            chessboard.setPixelColor(x, y, (x + y) % 2 ? Qt::white : Qt::black);
    }
    const QImage preview = HistoryPreview::downscaled(chessboard, 100);
    ASSERT_EQ(preview.size(), QSize(100, 50));
    EXPECT_EQ(preview.format(), QImage::Format_RGBA8888);
    for (const QPoint& point : {QPoint(0, 0), QPoint(50, 20), QPoint(51, 20), QPoint(99, 49)})
        EXPECT_NEAR(preview.pixelColor(point).green(), 128, 12);
}

} // namespace
} // namespace Veilshot
