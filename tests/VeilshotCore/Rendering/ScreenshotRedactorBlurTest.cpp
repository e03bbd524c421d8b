#include "tests/VeilshotCore/Rendering/RenderingFixtures.h"

#include <array>
#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <string>

namespace Veilshot {
namespace {

/// Red, green, blue (each times alpha) and alpha of every pixel, from 0 to 255.
using Picture = std::vector<std::array<double, 4>>;

Picture premultiplied(const QImage& image) {
    Picture picture;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const uchar* pixel = image.constScanLine(y) + 4 * x;
            const double alpha = pixel[3] / 255.0;
            picture.push_back({pixel[0] * alpha, pixel[1] * alpha, pixel[2] * alpha, double(pixel[3])});
        }
    }
    return picture;
}

/// The weight of every pixel of a line of `count` in the Gaussian around pixel `centre`, edges repeated.
std::vector<double> weightsAround(int centre, int count, double sigma) {
    std::vector<double> weights(std::size_t(count), 0.0);
    const int radius = static_cast<int>(std::ceil(8 * sigma));
    double sum = 0;
    for (int distance = -radius; distance <= radius; ++distance) {
        const double weight = std::exp(-0.5 * (distance / sigma) * (distance / sigma));
        weights[std::size_t(std::clamp(centre + distance, 0, count - 1))] += weight;
        sum += weight;
    }
    for (double& weight : weights)
        weight /= sum;
    return weights;
}

/// Every pixel straight from the definition, in double precision.
Picture directGaussian(const QImage& image, double sigma) {
    const int width = image.width();
    const int height = image.height();
    const Picture source = premultiplied(image);
    Picture alongRows(source.size());
    Picture result(source.size());
    for (int x = 0; x < width; ++x) {
        const std::vector<double> weights = weightsAround(x, width, sigma);
        for (int y = 0; y < height; ++y)
            for (int other = 0; other < width; ++other)
                for (std::size_t channel = 0; channel < 4; ++channel)
                    alongRows[std::size_t(y * width + x)][channel] +=
                        weights[std::size_t(other)] * source[std::size_t(y * width + other)][channel];
    }
    for (int y = 0; y < height; ++y) {
        const std::vector<double> weights = weightsAround(y, height, sigma);
        for (int other = 0; other < height; ++other)
            for (int x = 0; x < width; ++x)
                for (std::size_t channel = 0; channel < 4; ++channel)
                    result[std::size_t(y * width + x)][channel] +=
                        weights[std::size_t(other)] * alongRows[std::size_t(other * width + x)][channel];
    }
    return result;
}

/// The largest error in grey levels: of alpha, of the colours times alpha, and, where there is at least a
/// quarter of it, of the straight colours.
double largestError(const QImage& actual, const Picture& expected) {
    double largest = 0;
    const Picture got = premultiplied(actual);
    for (std::size_t i = 0; i < got.size(); ++i) {
        const double alpha = expected[i][3];
        for (std::size_t channel = 0; channel < 4; ++channel) {
            largest = std::max(largest, std::abs(got[i][channel] - expected[i][channel]));
            if (alpha >= 64 && channel < 3)
                largest = std::max(
                    largest, std::abs(got[i][channel] / got[i][3] - expected[i][channel] / alpha) * 255);
        }
    }
    return largest;
}

QImage blurred(const QImage& image, double sigma) {
    return ScreenshotRedactor().render(image, wholeImage(), RedactionStyle::smooth, sigma);
}

QColor blackOrWhite(bool isWhite) {
    return isWhite ? QColor(Qt::white) : QColor(Qt::black);
}

TEST(ScreenshotRedactorBlur, IsWithinTwoGreyLevelsOfAGaussianOnHardContent) {
    constexpr QSize size(151, 110);
    struct Row {
        std::string name;
        QImage image;
    };
    const Row rows[] = {
        {"noise", blackAndWhiteNoise(size)},
        {"translucent noise", translucentNoise(size)},
        {"checkerboard of pixels",
         paintedImage(size, [](int x, int y) { return blackOrWhite((x + y) % 2); })},
        {"edges beside the border",
         paintedImage(size, [](int x, int y) { return blackOrWhite(x > 1 && y > 1 && x != 90); })},
        {"lines that shrinking could fold at 18",
         paintedImage(size, [](int x, int y) { return blackOrWhite(y % 9 < 4 || x % 10 < 5); })},
        {"lines that shrinking could fold at 36",
         paintedImage(size, [](int, int y) { return blackOrWhite(y % 18 < 9); })},
        {"bars", paintedImage(size, [](int x, int y) { return blackOrWhite(x % 31 < 15 || y % 58 < 29); })},
        {"bright colour under transparency", paintedImage(size,
                                                          [](int x, int y) {
                                                              return x / 30 + y / 30 == 3
                                                                         ? QColor(200, 20, 90)
                                                                         : QColor(0, 255, 0, 0);
                                                          })},
    };
    for (const Row& row : rows) {
        for (const double sigma : {0.3, 1.0, 2.0, 3.99, 4.0, 8.0, 18.0, 36.0, 75.0})
            EXPECT_LE(largestError(blurred(row.image, sigma), directGaussian(row.image, sigma)), 2)
                << row.name << ", sigma " << sigma;
    }
}

TEST(ScreenshotRedactorBlur, OfARegionIsCutOutOfTheBlurOfTheWholePicture) {
    for (const QImage& image : {blackAndWhiteNoise({400, 300}), translucentNoise({400, 300})}) {
        const std::vector<QRect> areas{
            {0, 0, 9, 5}, {391, 290, 9, 10}, {200, 20, 60, 12}, {230, 26, 60, 12}, {20, 250, 1, 1}};
        for (const double sigma : {1.5, 8.0, 36.0, 100.0}) {
            const QImage whole = blurred(image, sigma);
            QImage expected = image;
            for (const QRect& area : areas)
                for (int y = area.top(); y <= area.bottom(); ++y)
                    std::copy_n(whole.constScanLine(y) + 4 * area.left(), 4 * area.width(),
                                expected.scanLine(y) + 4 * area.left());
            const QImage actual = ScreenshotRedactor().render(image, regionsOver(image.size(), areas),
                                                              RedactionStyle::smooth, sigma);
            EXPECT_EQ(firstDifference(actual, expected), QString()) << sigma;
        }
    }
}

TEST(ScreenshotRedactorBlur, LeavesRegionsAsTheyAreWithoutAPositiveSigma) {
    const QImage image = translucentNoise({40, 30});
    for (const double sigma : {0.0, -8.0, 1e-300, -std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(firstDifference(blurred(image, sigma), image), QString()) << sigma;
}

TEST(ScreenshotRedactorBlur, OfHugeSigmaIsTheAverageOfTheCorners) {
    // Beyond the image its edges go on for ever, and from far away there is nothing else.
    const QImage image = paintedImage({300, 200}, [](int x, int y) {
        return x == 0 && y == 0 ? QColor(240, 0, 80) : QColor(0, x == 299 ? 200 : 40, 80);
    });
    for (const double sigma : {1e6, 1e300, std::numeric_limits<double>::infinity()}) {
        const QImage result = blurred(image, sigma);
        for (const QPoint point : {QPoint(0, 0), QPoint(150, 100), QPoint(299, 199)}) {
            EXPECT_NEAR(result.pixelColor(point).red(), 60, 1);
            EXPECT_NEAR(result.pixelColor(point).green(), 110, 1);
            EXPECT_EQ(result.pixelColor(point).blue(), 80);
            EXPECT_EQ(result.pixelColor(point).alpha(), 255);
        }
    }
}

TEST(ScreenshotRedactorBlur, WorksOnSlivers) {
    for (const QSize size : {QSize(1, 1), QSize(1, 20000), QSize(20000, 1), QSize(2, 3)}) {
        const QImage image =
            paintedImage(size, [](int x, int y) { return QColor(10, 20, (x + y) % 2 ? 0 : 200); });
        for (const double sigma : {0.5, 3.0, 8.0, 36.0, 500.0, 1e9}) {
            const QImage result = blurred(image, sigma);
            ASSERT_EQ(result.size(), size);
            const QColor middle = result.pixelColor(size.width() / 2, size.height() / 2);
            EXPECT_EQ(middle.red(), 10);
            EXPECT_EQ(middle.green(), 20);
            EXPECT_EQ(middle.alpha(), 255);
            if (size.width() * size.height() == 20000 && sigma >= 3 && sigma <= 500) {
                EXPECT_NEAR(middle.blue(), 100, 1) << sigma;
            }
        }
    }
}

} // namespace
} // namespace Veilshot
