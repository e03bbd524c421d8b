#include "VeilshotCore/Analysis/TextRecognition/TextSegments.h"

#include <QColor>
#include <gmock/gmock.h>
#include <random>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

void fill(QImage& image, const QRect& rect, QColor colour) {
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x)
            image.setPixelColor(x, y, colour);
    }
}

/// A word of ten "letters": frames of 6 × 10 pixels with strokes of 2.
QRect drawWord(QImage& image, const QPoint& position, QColor colour, QColor ground) {
    for (int letter = 0; letter < 10; ++letter) {
        const QRect outer(position + QPoint(9 * letter, 0), QSize(6, 10));
        fill(image, outer, colour);
        fill(image, outer.adjusted(2, 2, -2, -2), ground);
    }
    return {position, QSize(87, 10)};
}

QImage page(QSize size, QColor colour) {
    QImage image(size, QImage::Format_RGBA8888);
    image.fill(colour);
    return image;
}

bool neverCancelled() {
    return false;
}

std::vector<QRect> boxesIn(const QImage& image) {
    std::vector<QRect> boxes;
    for (const TextSegment& segment : findTextSegments(image, neverCancelled))
        boxes.push_back(segment.box);
    return boxes;
}

TEST(TextSegments, AreDarkOnWhiteWhateverTheirColours) {
    QImage image = page({600, 400}, Qt::white);
    const QRect sidebar(0, 0, 200, 400);
    const QRect bubble(320, 200, 240, 60);
    fill(image, sidebar, QColor(32, 33, 36));
    fill(image, bubble, QColor(10, 120, 240));
    const std::vector<QRect> words{
        drawWord(image, {40, 50}, Qt::white, QColor(32, 33, 36)),
        drawWord(image, {260, 50}, QColor(120, 120, 120), Qt::white),
        drawWord(image, {360, 225}, Qt::white, QColor(10, 120, 240)),
    };
    ASSERT_EQ(boxesIn(image), words);
    for (const TextSegment& segment : findTextSegments(image, neverCancelled)) {
        EXPECT_EQ(segment.ink.size(), segment.box.size());
        EXPECT_EQ(segment.ink.pixelColor(0, 5).lightness(), 0);   // a stroke
        EXPECT_EQ(segment.ink.pixelColor(3, 5).lightness(), 255); // inside the first letter
    }
}

TEST(TextSegments, KeepTheCellsOfARowApartAndLeaveOutRulesAndFilledShapes) {
    QImage image = page({600, 200}, Qt::white);
    fill(image, {20, 40, 560, 1}, Qt::gray);           // the table's rule
    fill(image, {20, 60, 30, 30}, QColor(200, 80, 0)); // an avatar with its initials
    fill(image, {30, 68, 4, 14}, Qt::white);
    fill(image, {37, 68, 4, 14}, Qt::white);
    const QRect first = drawWord(image, {60, 70}, Qt::black, Qt::white);
    const QRect second = drawWord(image, {200, 70}, Qt::black, Qt::white);
    EXPECT_EQ(boxesIn(image), (std::vector{first, second}));
}

TEST(TextSegments, KeepTheFilledLettersOfABoldWordButNoEmptyCells) {
    QImage image = page({600, 200}, Qt::white);
    const QRect letters[] = {{100, 60, 20, 24}, {124, 66, 18, 18}, {146, 66, 20, 18}};
    for (const QRect& letter : letters) {
        fill(image, letter, Qt::black);
        fill(image, {letter.x() + 10, letter.y(), 10, 6}, Qt::white); // ragged, like letters
    }
    for (const int x : {300, 324, 348})
        fill(image, {x, 60, 22, 24}, Qt::black);
    EXPECT_EQ(boxesIn(image), std::vector{QRect(100, 60, 66, 24)});
}

TEST(TextSegments, StayTwoBesideTheBarOfAQuotation) {
    QImage image = page({600, 200}, Qt::white);
    fill(image, {92, 54, 4, 30}, QColor(0, 120, 90));
    const QRect upper = drawWord(image, {100, 56}, Qt::black, Qt::white);
    const QRect lower = drawWord(image, {100, 72}, Qt::black, Qt::white);
    EXPECT_EQ(boxesIn(image), (std::vector{upper, lower}));
}

TEST(TextSegments, EndAtTheFaintBorderOfACell) {
    QImage image = page({600, 200}, Qt::white);
    fill(image, {196, 40, 1, 60}, QColor(230, 230, 230));
    const QRect first = drawWord(image, {105, 60}, Qt::black, Qt::white);
    const QRect second = drawWord(image, {201, 60}, Qt::black, Qt::white);
    EXPECT_EQ(boxesIn(image), (std::vector{first, second}));
}

TEST(TextSegments, StandOnTheGroundOfTheirCell) {
    QImage image = page({600, 200}, QColor(205, 205, 205)); // what shows between the cells
    std::vector<QRect> words;
    for (const int x : {20, 152}) {
        fill(image, {x, 60, 130, 26}, Qt::white);
        words.push_back({x + 20, 68, 80, 10});
        fill(image, words.back(), Qt::black); // a word whose letters touch
        for (int column = 0; column < 8; ++column)
            fill(image, {words.back().x() + 10 * column + 3, 72, 4, 6}, Qt::white);
    }
    EXPECT_EQ(boxesIn(image), words);
}

TEST(TextSegments, StandOnACardThatCoversTheCornerOfACell) {
    QImage image = page({900, 400}, Qt::white);
    fill(image, {0, 60, 900, 1}, Qt::lightGray);
    fill(image, {0, 130, 900, 1}, Qt::lightGray);
    fill(image, {100, 0, 1, 400}, Qt::lightGray);
    fill(image, {400, 0, 1, 400}, Qt::lightGray);
    const QColor card(216, 27, 96);
    fill(image, {103, 90, 295, 80}, card);
    std::vector<QRect> words{drawWord(image, {120, 100}, Qt::white, card)};
    EXPECT_EQ(boxesIn(image), words);
    fill(image, {103, 10, 295, 66}, card); // leaves a gap that is no letter
    words.push_back(drawWord(image, {120, 30}, Qt::white, card));
    EXPECT_THAT(boxesIn(image), testing::UnorderedElementsAreArray(words));
}

TEST(TextSegments, AreNotTiedToAPictureCodeByADottedRule) {
    QImage image = page({600, 300}, Qt::white);
    for (int y = 40; y < 160; y += 8) {
        for (int x = 400 + y % 16; x < 520; x += 16)
            fill(image, {x, y, 8, 8}, Qt::black);
    }
    for (int x = 40; x < 392; x += 7)
        fill(image, {x, 100, 4, 1}, Qt::black);
    const QRect upper = drawWord(image, {300, 70}, Qt::black, Qt::white);
    const QRect lower = drawWord(image, {300, 120}, Qt::black, Qt::white);
    EXPECT_THAT(boxesIn(image), testing::IsSupersetOf({upper, lower}));
}

TEST(TextSegments, GoOnBehindACommaOfFixedWidth) {
    QImage image = page({600, 100}, Qt::white);
    const QRect first = drawWord(image, {60, 40}, Qt::black, Qt::white);
    fill(image, {first.right() + 4, 48, 2, 5}, Qt::black);
    const QRect second = drawWord(image, {first.right() + 16, 40}, Qt::black, Qt::white);
    EXPECT_EQ(boxesIn(image), std::vector{first | second | QRect(first.right() + 4, 48, 2, 5)});
}

TEST(TextSegments, KeepTheirLettersWhereALineTouchesThem) {
    // Underlined, struck through, and in the frame of a field, each a line much longer than the word.
    for (const int y : {79, 74, 62}) {
        QImage image = page({1400, 200}, Qt::white);
        const QRect word = drawWord(image, {100, 70}, Qt::black, Qt::white);
        fill(image, {20, y, 1200, 1}, Qt::black);
        if (y == 62) {
            fill(image, {20, 88, 1200, 1}, Qt::black);
            fill(image, {20, 62, 1, 27}, Qt::black);
            fill(image, {1219, 62, 1, 27}, Qt::black);
        }
        const auto segments = findTextSegments(image, neverCancelled);
        ASSERT_EQ(segments.size(), 1u) << y;
        EXPECT_GE(segments[0].box.height(), 9);
        EXPECT_EQ(segments[0].box.left(), word.left());
        EXPECT_EQ(segments[0].box.right(), word.right());
    }
}

TEST(TextSegments, MayBeTallerThanAnyLineOfAProgram) {
    QImage image = page({1600, 600}, Qt::white);
    for (int letter = 0; letter < 6; ++letter) {
        const QRect outer(100 + 200 * letter, 200, 140, 240);
        fill(image, outer, Qt::black);
        fill(image, outer.adjusted(20, 20, -20, -20), Qt::white);
    }
    const auto segments = findTextSegments(image, neverCancelled);
    ASSERT_EQ(segments.size(), 1u);
    EXPECT_LE(std::abs(segments[0].box.left() - 100), 4);
    EXPECT_LE(std::abs(segments[0].box.bottom() - 439), 4);
    EXPECT_EQ(segments[0].ink.size(), segments[0].box.size());
}

TEST(TextSegments, AreNotMadeOfTheNoiseOfACamera) {
    QImage image = page({600, 400}, QColor(128, 128, 128));
    std::mt19937 random(7);
    std::normal_distribution<double> noise(128, 20);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < 4 * image.width(); ++x) {
            if (x % 4 != 3)
                image.scanLine(y)[x] = static_cast<uchar>(std::clamp(noise(random), 0.0, 255.0));
        }
    }
    EXPECT_LT(findTextSegments(image, neverCancelled).size(), 20u);
}

TEST(TextSegments, AreWholeWhereTilesMeetAndAppearOnce) {
    QImage image = page({300, 2200}, Qt::white);
    std::vector<QRect> words;
    for (int y = 14; y < 2180; y += 60)
        words.push_back(drawWord(image, {100, y}, Qt::black, Qt::white));
    EXPECT_EQ(boxesIn(image), words);
}

TEST(TextSegments, AreFoundOnTransparentPictures) {
    for (const QColor colour : {QColor(Qt::white), QColor(Qt::black)}) {
        QImage image = page({300, 100}, Qt::transparent);
        const QRect word = drawWord(image, {100, 40}, colour, Qt::transparent);
        EXPECT_EQ(boxesIn(image), std::vector{word});
    }
}

TEST(TextSegments, OfOddPicturesAreNone) {
    EXPECT_TRUE(findTextSegments({}, neverCancelled).empty());
    for (const QSize size : {QSize(1, 1), QSize(1, 20000), QSize(20000, 1), QSize(640, 480)})
        EXPECT_TRUE(findTextSegments(page(size, Qt::blue), neverCancelled).empty());
    QImage image = page({300, 100}, Qt::white);
    drawWord(image, {100, 40}, Qt::black, Qt::white);
    EXPECT_TRUE(findTextSegments(image, [] { return true; }).empty()); // cancelled
}

} // namespace
} // namespace Veilshot
