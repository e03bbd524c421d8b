#include "VeilshotCore/Analysis/PeopleSearch/PhotoRegions.h"

#include "VeilshotCore/Analysis/PeopleSearch/FaceAreas.h"

#include <QPainter>
#include <gmock/gmock.h>
#include <random>

using namespace testing;

namespace Veilshot {

namespace {

void drawPhoto(QImage& page, const QRect& place) {
    std::mt19937 random(5);
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x) {
            const int level = 90 + static_cast<int>(random() % 14) + (x - place.left()) % 50;
            page.setPixelColor(x, y, QColor(level, level, level - 20));
        }
    }
}

QImage plainPage() {
    QImage page(800, 600, QImage::Format_RGBA8888);
    page.fill(QColor(250, 250, 250));
    return page;
}

QImage gradientPage() {
    QImage page = plainPage();
    QLinearGradient gradient(0, 0, 300, 600);
    gradient.setColorAt(0, QColor(80, 60, 190));
    gradient.setColorAt(1, QColor(30, 150, 220));
    QPainter(&page).fillRect(page.rect(), gradient);
    return page;
}

} // namespace

TEST(PhotoRegionsTest, LeavesOutDrawnSurfaces) {
    QImage bars = plainPage();
    QPainter painter(&bars);
    for (int x = 0; x < bars.width(); x += 6)
        painter.fillRect(x, 100, 3, 300, QColor(20, 20, 20));
    painter.end();
    for (const QImage& page : {plainPage(), gradientPage(), bars})
        EXPECT_THAT(photoRegions(page), IsEmpty());
}

TEST(PhotoRegionsTest, EncloseAPhotographClosely) {
    const QRect place(203, 111, 90, 70);
    for (QImage page : {plainPage(), gradientPage()}) {
        drawPhoto(page, place);
        const std::vector<QRect> regions = photoRegions(page);
        ASSERT_THAT(regions, SizeIs(1));
        EXPECT_TRUE(regions[0].contains(place));
        EXPECT_TRUE(place.adjusted(-26, -26, 26, 26).contains(regions[0]));
    }
}

TEST(PhotoRegionsTest, KeepAPictureInAWindowApartFromTheWallpaperAround) {
    QImage page = plainPage();
    drawPhoto(page, page.rect());
    QPainter(&page).fillRect(60, 60, 680, 480, Qt::white);
    const QRect avatar(300, 300, 40, 40);
    drawPhoto(page, avatar);
    EXPECT_THAT(photoRegions(page), Contains(Truly([&](const QRect& region) {
                    return region.contains(avatar) && region.width() < 100;
                })));
}

TEST(FaceAreasTest, LeaveOutTextThatPassesForAPhotographButKeepPhotographsWhole) {
    QImage page = plainPage();
    QPainter painter(&page);
    for (int x = 100; x < 700; x += 6) {
        painter.fillRect(x, 100, 2, 300, QColor(20, 20, 20));
        painter.fillRect(x + 2, 100, 4, 300, QColor(240, 240, 240));
    }
    painter.end();
    const QRect place(303, 211, 22, 22);
    drawPhoto(page, place);
    const std::vector<QRect> areas = faceAreas(page, {page.rect()});
    ASSERT_THAT(areas, SizeIs(1));
    EXPECT_TRUE(areas[0].contains(place));
    EXPECT_TRUE(place.adjusted(-26, -26, 26, 26).contains(areas[0]));
    EXPECT_THAT(faceAreas(page, {place}), ElementsAre(place));
}

} // namespace Veilshot
