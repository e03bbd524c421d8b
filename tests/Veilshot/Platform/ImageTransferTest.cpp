#include "Veilshot/Platform/ImageTransfer.h"

#include "tests/Veilshot/FileContents.h"
#include "tests/Veilshot/Platform/ImageSamples.h"
#include "tests/Veilshot/StandIns.h"

#include <QMimeData>
#include <QTemporaryDir>
#include <QThread>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

using ImageTransfer::LoadedItem;

QImage picture(QColor color) {
    return ImageSamples::filled(color, {8, 8});
}

QByteArray png(QColor color) {
    return ImageSamples::encoded(picture(color), "png");
}

struct Drop : testing::Test {
    QTemporaryDir folder;
    QMimeData data;

    QUrl file(const QString& name, const QByteArray& bytes) const {
        return QUrl::fromLocalFile(FileContents::write(folder.filePath(name), bytes));
    }

    /// The colour of the picture, the error, or "refused".
    QString outcome() const {
        int calls = 0;
        LoadedItem loaded;
        const bool isAccepted = ImageTransfer::load(itemProviders(data), [&](const LoadedItem& item) {
            EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
            ++calls;
            loaded = item;
        });
        EXPECT_EQ(calls, 0) << "never before the drop has returned";
        if (!isAccepted)
            return u"refused"_s;
        EXPECT_TRUE(StandIns::waitUntil([&] { return calls == 1; }));
        const auto* image = std::get_if<QImage>(&loaded);
        return image ? image->pixelColor(0, 0).name() : std::get<QString>(loaded);
    }
};

const QString red = u"#ff0000"_s, green = u"#00ff00"_s;

TEST_F(Drop, PrefersTheImageObjectToData) {
    data.setData(u"image/png"_s, png(Qt::green));
    data.setImageData(picture(Qt::red));
    data.setUrls({file(u"other.png"_s, png(Qt::blue))});
    EXPECT_EQ(outcome(), red);
}

TEST_F(Drop, TakesTheFirstDataOfAnImageTypeThatHoldsPixels) {
    data.setText(u"words"_s);
    data.setData(u"image/svg+xml"_s, "<svg/>");
    data.setData(u"image/x-of-some-make"_s, png(Qt::green));
    data.setData(u"image/png"_s, png(Qt::red));
    EXPECT_EQ(outcome(), green);
}

TEST_F(Drop, TakesTheFirstFileThatIsAPicture) {
    data.setUrls({QUrl(u"https://example.com/a.png"_s), QUrl::fromLocalFile(folder.path()),
                  file(u"notes.txt"_s, "words"),
                  file(u"drawing.svg"_s, "<svg xmlns='http://www.w3.org/2000/svg'/>"),
                  file(u"without-suffix"_s, png(Qt::green)), file(u"later.png"_s, png(Qt::red))});
    EXPECT_EQ(outcome(), green);
}

TEST_F(Drop, SaysWhyAPictureCannotBeHad) {
    data.setUrls({file(u"damaged.png"_s, "no picture"), file(u"good.png"_s, png(Qt::red))});
    EXPECT_EQ(outcome(), u"The dropped item isn’t a readable image."_s) << "only the first picture counts";
    data.setUrls({QUrl::fromLocalFile(folder.filePath(u"gone.png"_s))});
    EXPECT_EQ(outcome(), u"gone.png: there is no such file"_s);
}

TEST_F(Drop, IsRefusedWithoutAPicture) {
    EXPECT_EQ(outcome(), u"refused"_s);
    data.setText(u"words"_s);
    data.setUrls({file(u"notes.txt"_s, "words")});
    EXPECT_EQ(outcome(), u"refused"_s);
}

} // namespace
} // namespace Veilshot
