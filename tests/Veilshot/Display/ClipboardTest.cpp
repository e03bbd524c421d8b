#include "Veilshot/Platform/Clipboard.h"

#include "Veilshot/Platform/ImageTransfer.h"
#include "tests/Veilshot/Platform/ImageSamples.h"
#include "tests/Veilshot/StandIns.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

using namespace ImageSamples;
using StandIns::waitUntil;

QImage bitmap(const QImage& image) {
    return image.convertedTo(QImage::Format_RGBA8888);
}

/// The real one, with xclip as the other program.
struct DesktopClipboard : testing::Test {
    const QImage small = bitmap(gradient({33, 17}));
    SystemClipboard clipboard;
    std::vector<std::unique_ptr<QProcess>> owners;

    void SetUp() override {
        QGuiApplication::clipboard()->clear();
        EXPECT_TRUE(waitUntil([&] { return clipboard.contents()->formats().isEmpty(); }));
    }

    void TearDown() override { endOwners(); }

    /// What the other program gets if it asks now.
    static QByteArray pasted(const QString& type) {
        QProcess xclip;
        xclip.start(u"xclip"_s, {u"-selection"_s, u"clipboard"_s, u"-t"_s, type, u"-o"_s});
        EXPECT_TRUE(waitUntil([&] { return xclip.state() == QProcess::NotRunning; }));
        return xclip.readAllStandardOutput();
    }

    /// Lets the other program put something there, for as long as it runs.
    void startCopying(const QString& type, const QByteArray& bytes) {
        owners.push_back(std::make_unique<QProcess>());
        QProcess& xclip = *owners.back();
        xclip.start(u"xclip"_s, {u"-quiet"_s, u"-selection"_s, u"clipboard"_s, u"-t"_s, type, u"-i"_s});
        xclip.write(bytes);
        xclip.closeWriteChannel();
        while (xclip.bytesToWrite() > 0 && xclip.waitForBytesWritten())
            continue;
    }

    void copy(const QString& type, const QByteArray& bytes) {
        startCopying(type, bytes);
        EXPECT_TRUE(waitUntil([&] { return clipboard.contents()->formats().contains(type); }));
        QCoreApplication::processEvents(); // which tell of the new owner
    }

    void endOwners() {
        for (const auto& owner : owners) {
            owner->kill();
            owner->waitForFinished();
        }
        owners.clear();
    }

    std::optional<QImage> read() const { return ImageTransfer::imageFromPasteboard(clipboard).result(); }
};

/// Larger than one request of the X protocol, also as a PNG file.
QImage largeBitmap() {
    QImage image(5120, 2880, QImage::Format_RGB32);
    QRandomGenerator(7).fillRange(reinterpret_cast<quint32*>(image.bits()), image.width() * image.height());
    return bitmap(image);
}

TEST_F(DesktopClipboard, GivesOtherProgramsThePixelsAtOnce) {
    QImage translucent = small;
    translucent.setPixelColor(5, 5, QColor(10, 20, 30, 40));
    for (const QImage& image : {translucent, largeBitmap()}) {
        ASSERT_TRUE(clipboard.write(image));
        EXPECT_EQ(bitmap(QImage::fromData(pasted(u"image/png"_s), "png")), image);
    }
}

TEST_F(DesktopClipboard, NamesPngFirstAndConvertsToOtherTypes) {
    ASSERT_TRUE(clipboard.write(small));
    QList<QByteArray> types = pasted(u"TARGETS"_s).split('\n');
    types.removeIf([](const QByteArray& type) { return !type.startsWith("image/"); });
    EXPECT_EQ(types.constFirst(), "image/png");
    EXPECT_EQ(bitmap(QImage::fromData(pasted(u"image/bmp"_s), "bmp")), small);
}

TEST_F(DesktopClipboard, ReadsImagesOfOtherPrograms) {
    const QImage large = largeBitmap();
    copy(u"image/png"_s, encoded(large, "png"));
    EXPECT_EQ(read(), large);
    copy(u"image/bmp"_s, encoded(small, "bmp"));
    EXPECT_EQ(read(), small);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a shot.png"_s);
    ASSERT_TRUE(small.save(path));
    copy(u"text/uri-list"_s, QUrl::fromLocalFile(path).toEncoded() + "\r\n");
    EXPECT_EQ(read(), small);
}

TEST_F(DesktopClipboard, ReadsNothingWhereThereIsNoImage) {
    EXPECT_EQ(read(), std::nullopt);
    copy(u"text/plain"_s, "shot.png");
    EXPECT_EQ(read(), std::nullopt);
    copy(u"image/png"_s, encoded(small, "png").chopped(40));
    EXPECT_EQ(read(), std::nullopt);
    copy(u"image/bmp"_s, encoded(small, "bmp"));
    EXPECT_NE(read(), std::nullopt);
    endOwners();
    EXPECT_TRUE(waitUntil([&] { return !read(); }));
}

TEST_F(DesktopClipboard, ReadsBackWhatItWrote) {
    copy(u"text/plain"_s, "earlier");
    ASSERT_TRUE(clipboard.write(small));
    EXPECT_EQ(read(), small);
    EXPECT_EQ(pasted(u"text/plain"_s), "");
}

TEST_F(DesktopClipboard, ReportsAWriteThatAnotherProgramForestalled) {
    copy(u"text/plain"_s, "earlier");
    startCopying(u"text/plain"_s, "later");
    // The first gives way. No event has told this process so, and the server refuses it for being late.
    ASSERT_TRUE(owners.front()->waitForFinished());
    EXPECT_FALSE(clipboard.write(small));
    EXPECT_EQ(pasted(u"text/plain"_s), "later");
}

} // namespace
} // namespace Veilshot
