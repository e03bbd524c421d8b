#include "Veilshot/Features/History/HistoryImage.h"

#include "tests/Veilshot/FileContents.h"
#include "tests/Veilshot/Platform/ImageSamples.h"
#include "tests/Veilshot/StandIns.h"

#include <QQuickWindow>
#include <QTemporaryDir>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

constexpr Qt::GlobalColor background = Qt::yellow;

struct HistoryImageTest : testing::Test {
    const QTemporaryDir temporary;
    QQuickWindow window;
    HistoryImage* item = nullptr;

    void SetUp() override {
        window.setColor(background);
        window.resize(200, 100);
        item = new HistoryImage(window.contentItem());
        item->setSize({200, 100});
        window.show();
    }

    QUrl file(const QString& name, const QByteArray& bytes) const {
        return QUrl::fromLocalFile(FileContents::write(temporary.filePath(name), bytes));
    }
    QColor color(int x, int y) { return window.grabWindow().pixelColor(x, y); }
    bool waitForColor(int x, int y, const QColor& expected) {
        return StandIns::waitUntil([&] { return color(x, y) == expected; });
    }
};

TEST_F(HistoryImageTest, ShowsTheWholeImageInTheMiddleWithTheCornersOfTheItem) {
    item->setCornerRadius(20);
    item->setUrl(file(u"tall.png"_s, ImageSamples::encoded(ImageSamples::quadrants({500, 1000}), "png")));
    ASSERT_TRUE(waitForColor(90, 40, Qt::red));
    EXPECT_EQ(color(110, 60), QColor(Qt::white));
    EXPECT_EQ(color(76, 1), QColor(Qt::red)) << "no corner of the item";
    EXPECT_EQ(color(73, 50), QColor(background));
    EXPECT_EQ(color(126, 50), QColor(background));

    item->setUrl(file(u"wide.png"_s, ImageSamples::encoded(ImageSamples::quadrants({40, 20}), "png")));
    EXPECT_EQ(color(90, 40), QColor(background)) << "the old image goes at once";
    ASSERT_TRUE(waitForColor(90, 40, Qt::red));
    EXPECT_EQ(color(1, 40), QColor(Qt::red)) << "enlarged";
    EXPECT_EQ(color(2, 2), QColor(background)) << "a corner of the item";
}

TEST_F(HistoryImageTest, StaysBlankWithoutAReadableFile) {
    const QByteArray png = ImageSamples::encoded(ImageSamples::quadrants(), "png");
    for (const QUrl& url : {QUrl::fromLocalFile(temporary.filePath(u"none.png"_s)),
                            file(u"broken.png"_s, png.left(png.size() / 2))}) {
        item->setUrl(file(u"good.png"_s, png));
        ASSERT_TRUE(waitForColor(90, 40, Qt::red));
        item->setUrl(url);
        window.grabWindow();
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
        EXPECT_EQ(color(90, 40), QColor(background));
    }
}

} // namespace
} // namespace Veilshot
