#include "Veilshot/Features/Editor/FittedBitmap.h"

#include <cmath>
#include <gmock/gmock.h>
#include <random>

namespace Veilshot {
namespace {

QImage noise(QSize size, unsigned seed, int minimumAlpha = 255) {
    std::mt19937 random(seed);
    QImage image(size, QImage::Format_RGBA8888);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const auto level = [&](int minimum) { return minimum + int(random() % unsigned(256 - minimum)); };
            image.setPixelColor(x, y, QColor(level(0), level(0), level(0), level(minimumAlpha)));
        }
    }
    return image;
}

QImage fitted(const QImage& source, QSize size, double cornerRadius = 0) {
    FittedBitmap bitmap;
    bitmap.show(source, 1, {}, size, cornerRadius);
    return bitmap.image();
}

/// The average over a pixel's area, of premultiplied values.
std::array<double, 4> average(const QImage& source, QSize size, int x, int y) {
    const double width = double(source.width()) / size.width();
    const double height = double(source.height()) / size.height();
    const QRectF area(x * width, y * height, width, height);
    std::array<double, 4> sums{};
    for (int row = int(area.top()); row < std::min<double>(area.bottom(), source.height()); ++row) {
        for (int column = int(area.left()); column < std::min<double>(area.right(), source.width());
             ++column) {
            const QRectF common = area & QRectF(column, row, 1, 1);
            const double share = common.width() * common.height() / (width * height);
            const QColor color = source.pixelColor(column, row);
            const double alpha = color.alphaF() * share;
            sums[0] += color.red() * alpha;
            sums[1] += color.green() * alpha;
            sums[2] += color.blue() * alpha;
            sums[3] += 255 * alpha;
        }
    }
    return sums;
}

TEST(FittedBitmap, AveragesTheAreaOfEachPixel) {
    for (const int minimumAlpha : {255, 0}) {
        const QImage source = noise({101, 67}, 1, minimumAlpha);
        for (const QSize size : {QSize(40, 23), QSize(101, 67), QSize(99, 5), QSize(1, 1)}) {
            const QImage image = fitted(source, size);
            ASSERT_EQ(image.size(), size);
            for (int y = 0; y < size.height(); ++y) {
                for (int x = 0; x < size.width(); ++x) {
                    const uchar* pixel = image.constScanLine(y) + 4 * x;
                    for (size_t c = 0; c < 4; ++c)
                        ASSERT_NEAR(pixel[c], average(source, size, x, y)[c], 1.5) << x << ' ' << y;
                }
            }
        }
    }
}

TEST(FittedBitmap, EnlargesSmoothly) {
    QImage ramp({40, 3}, QImage::Format_RGBA8888);
    for (int x = 0; x < ramp.width(); ++x) {
        for (int y = 0; y < ramp.height(); ++y)
            ramp.setPixelColor(x, y, QColor(6 * x, 255, 0, 255));
    }
    const QImage image = fitted(ramp, {100, 2});
    for (int x = 4; x < image.width() - 4; ++x) {
        const uchar* pixel = image.constScanLine(1) + 4 * x;
        EXPECT_NEAR(pixel[0], 6 * ((x + 0.5) * 0.4 - 0.5), 2);
    }
    const QImage soft = fitted(noise({20, 20}, 3, 0), {70, 30});
    for (int i = 0; i < 70 * 30; ++i) {
        const uchar* pixel = soft.constBits() + 4 * i;
        ASSERT_LE(std::max({pixel[0], pixel[1], pixel[2]}), pixel[3]) << "premultiplied";
    }
}

TEST(FittedBitmap, ComputesOnlyWhatWasPaintedAgain) {
    const QRegion before = QRegion(10, 10, 33, 21) + QRect(290, 190, 10, 10);
    const QRegion now = QRegion(40, 25, 61, 7) + QRect(0, 0, 5, 5) + QRect(17, 99, 1, 1);
    const QImage source = noise({300, 200}, 4);
    const auto painted = [&](const QRegion& region, unsigned seed) {
        QImage image = source;
        const QImage paint = noise(source.size(), seed);
        for (const QRect& rect : region) {
            for (int y = rect.top(); y <= rect.bottom(); ++y)
                memcpy(image.scanLine(y) + 4 * rect.left(), paint.constScanLine(y) + 4 * rect.left(),
                       size_t(rect.width()) * 4);
        }
        return image;
    };
    for (const QSize size : {QSize(77, 51), QSize(300, 200), QSize(450, 333), QSize(100, 300)}) {
        FittedBitmap bitmap;
        bitmap.show(painted(before, 5), 1, before, size, 12);
        QImage next = painted(now, 6);
        bitmap.show(next, 1, now, size, 12);
        EXPECT_EQ(bitmap.image(), fitted(next, size, 12)) << size.width();
        next.setPixelColor(250, 100, Qt::red); // where nothing was painted
        bitmap.show(next, 2, now, size, 12);
        EXPECT_EQ(bitmap.image(), fitted(next, size, 12)) << "another source";
    }
}

TEST(FittedBitmap, RoundsTheCorners) {
    QImage white({50, 40}, QImage::Format_RGBA8888);
    white.fill(Qt::white);
    const QImage image = fitted(white, {100, 80}, 16);
    const auto alpha = [&](int x, int y) { return image.constScanLine(y)[4 * x + 3]; };
    for (const QPoint& corner : {QPoint(0, 0), QPoint(99, 0), QPoint(0, 79), QPoint(99, 79)}) {
        const auto [x, y] = std::pair(corner.x(), corner.y());
        const int inX = x == 0 ? 1 : -1, inY = y == 0 ? 1 : -1;
        EXPECT_EQ(alpha(x + 3 * inX, y + 3 * inY), 0);
        EXPECT_EQ(alpha(x + 6 * inX, y + 6 * inY), 255);
        EXPECT_EQ(alpha(x + 17 * inX, y), 255);
    }
    const QImage dot = fitted(white, {1, 3}, 16);
    EXPECT_EQ(dot.constScanLine(1)[3], 255);
}

TEST(FittedBitmap, ShowsNothingWithoutPictureOrSize) {
    FittedBitmap bitmap;
    for (const auto& [source, size] : {std::pair(noise({9, 9}, 7), QSize(0, 5)), {QImage(), QSize(5, 5)}}) {
        bitmap.show(noise({9, 9}, 7), 1, {}, {5, 5}, 0);
        bitmap.show(source, 1, {}, size, 0);
        EXPECT_TRUE(bitmap.image().isNull());
    }
}

} // namespace
} // namespace Veilshot
