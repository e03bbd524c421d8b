#include "tests/VeilshotCore/Rendering/RenderingFixtures.h"

#include <cmath>
#include <cstdint>
#include <gmock/gmock.h>
#include <limits>

namespace Veilshot {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

SensitiveRegion region(const NormalizedRect& rect) {
    return {QUuid::createUuid(), rect, SensitiveKind::phone};
}

/// One pixel of the pixelated picture straight from its definition.
std::array<uchar, 4> pixelatedPixel(const QImage& image, int column, int row, double side) {
    struct Cell {
        int first;
        int last;
    };
    const auto cellAround = [&](int pixel, int count) {
        const auto isIn = [&](int other, int cell) {
            const double centre = other + 0.5;
            return count / 2.0 + cell * side <= centre && centre < count / 2.0 + (cell + 1) * side;
        };
        int cell = 0;
        while (!isIn(pixel, cell))
            cell += pixel + 0.5 < count / 2.0 ? -1 : 1;
        Cell found{pixel, pixel};
        while (isIn(found.first - 1, cell))
            --found.first;
        while (isIn(found.last + 1, cell))
            ++found.last;
        return found;
    };
    const Cell columns = cellAround(column, image.width());
    const Cell rows = cellAround(row, image.height());
    std::array<std::int64_t, 4> sum{};
    std::int64_t count = 0;
    for (int y = rows.first; y <= rows.last; ++y) {
        for (int x = columns.first; x <= columns.last; ++x, ++count) {
            const uchar* pixel = image.constScanLine(std::clamp(y, 0, image.height() - 1)) +
                                 4 * std::clamp(x, 0, image.width() - 1);
            for (std::size_t channel = 0; channel < 3; ++channel)
                sum[channel] += pixel[channel] * pixel[3];
            sum[3] += pixel[3];
        }
    }
    const auto rounded = [](std::int64_t dividend, std::int64_t divisor) {
        return static_cast<uchar>(dividend / divisor + (dividend % divisor * 2 >= divisor ? 1 : 0));
    };
    if (rounded(sum[3], count) == 0)
        return {};
    return {rounded(sum[0], sum[3]), rounded(sum[1], sum[3]), rounded(sum[2], sum[3]),
            rounded(sum[3], count)};
}

TEST(ScreenshotRedactor, ReturnsTheVeryImageWithoutRegions) {
    const QImage image = translucentNoise({7, 5});
    for (const RedactionStyle style : allRedactionStyles)
        EXPECT_EQ(ScreenshotRedactor().render(image, {}, style, 18).cacheKey(), image.cacheKey());
    EXPECT_TRUE(ScreenshotRedactor().render({}, wholeImage(), RedactionStyle::blackout, 18).isNull());
}

TEST(ScreenshotRedactor, ChangesNoPixelOutsideTheRegions) {
    const QImage image = translucentNoise({331, 217});
    const std::vector<QRect> inside{{10, 10, 80, 21}, {60, 20, 90, 30},  {0, 0, 3, 3},
                                    {330, 216, 1, 1}, {200, 60, 1, 150}, {150, 200, 181, 4}};
    SensitiveRegions regions = regionsOver(image.size(), inside);
    regions.push_back(region({-0.3, 0.4, 0.32, 0.1})); // hangs out on the left: 7 columns, 22 or 23 rows
    regions.push_back(region({1.1, 0.2, 0.5, 0.5}));
    regions.push_back(region({0.5, 0.5, notANumber, 0.5}));
    std::vector<QRect> covered = inside;
    covered.push_back(QRect(0, 108, 7, 23));
    for (const RedactionStyle style : allRedactionStyles) {
        for (const double intensity : {1.0, 8.0, 18.5, 36.0, 300.0}) {
            const QImage result = ScreenshotRedactor().render(image, regions, style, intensity);
            EXPECT_EQ(firstDifferenceOutside(covered, result, image), QString())
                << rawValue(style).toStdString() << ' ' << intensity;
            const QImage source =
                ScreenshotRedactor().render(image, {region({1.1, 0.2, 0.5, 0.5})}, style, intensity);
            EXPECT_EQ(firstDifference(source, image), QString());
        }
    }
}

TEST(ScreenshotRedactor, BlacksOutExactlyThePixelsThatARegionTouches) {
    const QImage image =
        paintedImage({1000, 1000}, [](int x, int) { return QColor(255, 255, 255, x % 256); });
    const QImage onePixel = ScreenshotRedactor().render(image, {region({0.5, 0.5, 0.001, 0.001})},
                                                        RedactionStyle::blackout, notANumber);
    QImage expected = image;
    expected.setPixelColor(500, 499, Qt::black);
    EXPECT_EQ(firstDifference(onePixel, expected), QString());

    const QImage all = ScreenshotRedactor().render(image, wholeImage(), RedactionStyle::blackout, 0);
    EXPECT_EQ(firstDifference(all, paintedImage({1000, 1000}, [](int, int) { return QColor(0, 0, 0); })),
              QString());
}

TEST(ScreenshotRedactor, PixelatesExactlyAsDefined) {
    struct Row {
        QImage image;
        double intensity;
        double side;
    };
    const Row rows[] = {
        {translucentNoise({50, 41}), 2, 6},         {translucentNoise({50, 41}), 24, 24},
        {blackAndWhiteNoise({51, 40}), 6.5, 6.5},   {translucentNoise({37, 61}), 7.0 / 0.9, 7.0 / 0.9},
        {blackAndWhiteNoise({33, 20}), 100, 100},   {translucentNoise({1, 90}), 11, 11},
        {blackAndWhiteNoise({1, 1}), 8, 8},         {translucentNoise({23, 22}), notANumber, 6},
        {translucentNoise({23, 22}), -infinity, 6},
    };
    for (const Row& row : rows) {
        const std::vector<QRect> areas{{0, 0, 1, 3}, {0, 12, 30, 9}, {4, 15, 20, 40}};
        QImage expected = row.image;
        for (const QRect& area : areas) {
            const QRect inside = area.intersected(row.image.rect());
            for (int y = inside.top(); y <= inside.bottom(); ++y)
                for (int x = inside.left(); x <= inside.right(); ++x)
                    std::ranges::copy(pixelatedPixel(row.image, x, y, row.side),
                                      expected.scanLine(y) + 4 * x);
        }
        const QImage result = ScreenshotRedactor().render(row.image, regionsOver(row.image.size(), areas),
                                                          RedactionStyle::pixelate, row.intensity);
        EXPECT_EQ(firstDifference(result, expected), QString()) << row.intensity;
    }
}

TEST(ScreenshotRedactor, PixelatesWithHugeCellsAndOnSlivers) {
    // A cell of endless size holds little but the repeated corner of the image.
    const QImage image = paintedImage(
        {60, 40}, [](int x, int y) { return x == 0 && y == 0 ? QColor(Qt::red) : QColor(Qt::blue); });
    for (const double side : {1e6, 1e300, infinity}) {
        const QImage result =
            ScreenshotRedactor().render(image, wholeImage(), RedactionStyle::pixelate, side);
        EXPECT_EQ(result.pixelColor(29, 19), QColor(Qt::red));
        EXPECT_EQ(result.pixelColor(30, 19), QColor(Qt::blue));
    }
    for (const QSize size : {QSize(1, 20000), QSize(20000, 1)}) {
        const QImage sliver = paintedImage(size, [](int, int) { return QColor(1, 2, 3, 4); });
        EXPECT_EQ(firstDifference(
                      ScreenshotRedactor().render(sliver, wholeImage(), RedactionStyle::pixelate, 7), sliver),
                  QString());
    }
}

TEST(ScreenshotRedactor, ConvertsOtherFormatsFirst) {
    const QImage image = blackAndWhiteNoise({40, 30});
    const SensitiveRegions regions = regionsOver(image.size(), {{5, 5, 20, 10}});
    for (const RedactionStyle style : allRedactionStyles) {
        const QImage result =
            ScreenshotRedactor().render(image.convertToFormat(QImage::Format_RGB32), regions, style, 9);
        EXPECT_EQ(firstDifference(result, ScreenshotRedactor().render(image, regions, style, 9)), QString());
    }
}

} // namespace
} // namespace Veilshot
