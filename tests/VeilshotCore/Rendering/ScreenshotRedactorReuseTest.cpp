#include "tests/VeilshotCore/Rendering/RenderingFixtures.h"

#include <QPainter>
#include <atomic>
#include <gmock/gmock.h>
#include <random>
#include <thread>

namespace Veilshot {
namespace {

struct Task {
    int source;
    std::vector<QRect> areas;
    RedactionStyle style;
    double intensity;
};

constexpr QSize size(320, 240);
constexpr int sourceCount = 5;

/// Sources, styles and sets of areas (growing, shrinking, moved, apart) one after the other, at random. Blurs
/// take up most of it, with and without samples in common.
std::vector<Task> tasks() {
    const std::vector<QRect> areaSets[] = {{{10, 10, 60, 12}, {100, 50, 40, 20}},
                                           {{40, 15, 60, 12}},
                                           {{30, 10, 80, 30}},
                                           {{0, 0, 320, 240}},
                                           {{150, 140, 50, 10}, {3, 3, 1, 1}},
                                           {{10, 200, 40, 12}, {130, 120, 9, 70}}};
    std::vector<Task> all;
    for (int source = 0; source < sourceCount; ++source) {
        for (const std::vector<QRect>& areas : areaSets) {
            for (const double sigma : {5.0, 8.0, 13.0, 18.0, 36.0, 75.0})
                all.push_back({source, areas, RedactionStyle::smooth, sigma});
            all.push_back({source, areas, RedactionStyle::pixelate, 12});
            all.push_back({source, areas, RedactionStyle::blackout, 0});
        }
    }
    std::vector<Task> sequence;
    std::mt19937 random(3);
    int source = 0;
    while (sequence.size() < 200) {
        const Task& task = all[random() % all.size()];
        if (sequence.size() % 4 == 0) // several renders of one source in a row
            source = task.source;
        sequence.push_back(task);
        sequence.back().source = source;
    }
    return sequence;
}

/// Opaque wherever a blur near the other corners looks.
QImage withTranslucentCorner(QImage image) {
    image.setPixelColor(image.width() - 1, image.height() - 1, QColor(200, 10, 60, 254));
    return image;
}

class ScreenshotRedactorReuse : public testing::Test {
protected:
    QImage render(const Task& task) const {
        const QImage& image = sources[std::size_t(task.source)];
        return ScreenshotRedactor().render(image, regionsOver(image.size(), task.areas), task.style,
                                           task.intensity);
    }

    /// From a source and into memory that were never used before.
    QImage renderAfresh(const Task& task) const {
        ScreenshotRedactor::releaseMemory();
        const QImage image = sources[std::size_t(task.source)].copy();
        const QImage result = ScreenshotRedactor().render(image, regionsOver(image.size(), task.areas),
                                                          task.style, task.intensity);
        return result.copy();
    }

    std::vector<QImage> sources{
        translucentNoise(size), blackAndWhiteNoise(size), blackAndWhiteNoise(size).mirrored(true, true),
        withTranslucentCorner(blackAndWhiteNoise(size)), blackAndWhiteNoise(size.transposed())};
};

TEST_F(ScreenshotRedactorReuse, EveryRenderEqualsAFreshOneAndLaterOnesLeaveItAlone) {
    std::vector<QImage> expected;
    for (const Task& task : tasks())
        expected.push_back(renderAfresh(task));

    std::vector<QImage> held;
    std::size_t next = 0;
    for (const Task& task : tasks()) {
        held.push_back(render(task));
        ++next;
        ASSERT_EQ(firstDifference(held.back(), expected[next - 1]), QString()) << next;
        if (held.size() > 3) { // three results are alive while the next one is rendered
            ASSERT_EQ(firstDifference(held.front(), expected[next - held.size()]), QString()) << next;
            held.erase(held.begin());
        }
    }
}

TEST_F(ScreenshotRedactorReuse, TakesTheMemoryOfADroppedResultAndOnlyThat) {
    const Task task{0, {{10, 10, 60, 12}}, RedactionStyle::smooth, 8};
    ScreenshotRedactor::releaseMemory();
    QImage first = render(task);
    const QImage second = render(task);
    const uchar* memory = first.constBits();
    EXPECT_NE(second.constBits(), memory);
    first = QImage();
    EXPECT_EQ(render(task).constBits(), memory);
}

TEST_F(ScreenshotRedactorReuse, WritingToAResultNeverReachesALaterOne) {
    const Task task{1, {{40, 40, 30, 30}}, RedactionStyle::pixelate, 9};
    const QImage expected = renderAfresh(task);
    const auto writers = std::to_array<std::function<void(QImage&)>>({
        [](QImage& image) { image.fill(Qt::red); },
        [](QImage& image) { image.setPixel(0, 0, 0x12345678); },
        [](QImage& image) { image.bits()[5] ^= 255; },
        [](QImage& image) { QPainter(&image).fillRect(0, 0, 50, 50, Qt::green); },
        [](QImage& image) { image.convertTo(QImage::Format_ARGB32); },
        [](QImage& image) {
            image = std::move(image).convertToFormat(QImage::Format_RGBA8888_Premultiplied);
        },
    });
    for (std::size_t i = 0; i < writers.size(); ++i) {
        QImage result = render(task);
        const QImage shown = result;
        writers[i](result);
        EXPECT_EQ(firstDifference(shown, expected), QString()) << i;

        QImage alone = render(task);
        writers[i](alone);
        alone = QImage();
        EXPECT_EQ(firstDifference(render(task), expected), QString()) << i;
    }
}

TEST_F(ScreenshotRedactorReuse, AChangedSourceIsReadAgain) {
    const Task task{1, {{40, 40, 30, 30}}, RedactionStyle::smooth, 18};
    render(task);
    sources[1].fill(QColor(1, 2, 3));
    const QImage result = render(task);
    EXPECT_EQ(result.pixelColor(0, 0), QColor(1, 2, 3));
    EXPECT_EQ(result.pixelColor(55, 55), QColor(1, 2, 3));
}

TEST_F(ScreenshotRedactorReuse, SeveralThreadsRenderAtOnce) {
    std::vector<QImage> expected;
    for (const Task& task : tasks())
        expected.push_back(renderAfresh(task));
    std::atomic<int> wrong = 0;
    std::vector<std::jthread> threads;
    for (std::size_t thread = 0; thread < 4; ++thread)
        threads.emplace_back([&, thread] {
            const std::vector<Task> sequence = tasks();
            QImage shown;
            for (std::size_t i = 0; i < sequence.size(); ++i) {
                const std::size_t index = (i + 31 * thread) % sequence.size();
                shown = render(sequence[index]);
                if (!firstDifference(shown, expected[index]).isEmpty())
                    ++wrong;
                if (thread == 0 && i % 16 == 0)
                    ScreenshotRedactor::releaseMemory();
            }
        });
    threads.clear();
    EXPECT_EQ(wrong, 0);
}

} // namespace
} // namespace Veilshot
