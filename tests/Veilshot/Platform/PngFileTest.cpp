#include "Veilshot/Platform/PngFile.h"

#include "Veilshot/Platform/ImageDecoder.h"
#include "tests/Veilshot/Platform/ImageSamples.h"

#include <QColorSpace>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

using namespace ImageSamples;

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(PngFile, HoldsPixelsAndNothingElse) {
    QImage image = gradient({300, 200});
    image.setText(u"Comment"_s, u"taken by Nobody"_s);
    image.setColorSpace(QColorSpace::SRgb);
    image.setDotsPerMeterX(5905);
    image.setDevicePixelRatio(2);
    QImage transparent = image.convertToFormat(QImage::Format_ARGB32);
    transparent.setPixelColor(0, 0, QColor(9, 8, 7, 0));
    struct Row {
        QImage image;
        int colorType; // of PNG: 2 without an alpha channel, 6 with one
    };
    for (const Row& row :
         {Row{image, 2}, Row{transparent, 6}, Row{image.convertToFormat(QImage::Format_RGBA8888), 2},
          Row{image.convertToFormat(QImage::Format_Grayscale8), 2}}) {
        const QByteArray png = PngFile::encodePng(row.image);
        std::vector<QByteArray> types;
        for (const PngChunk& chunk : pngChunks(png)) {
            if (types.empty() || types.back() != chunk.type)
                types.push_back(chunk.type);
        }
        EXPECT_THAT(types, testing::ElementsAre("IHDR", "IDAT", "IEND"));
        EXPECT_EQ(pngChunks(png).front().data.at(9), row.colorType);
        const DecodedImage decoded = ImageDecoder::decodeBytes(png, u"png"_s);
        ASSERT_TRUE(std::holds_alternative<QImage>(decoded));
        EXPECT_EQ(std::get<QImage>(decoded), ImageDecoder::toBitmap(row.image));
    }
    EXPECT_TRUE(PngFile::encodePng({}).isEmpty());
}

TEST(PngFile, IsWrittenWholeOrNotAtAll) {
    const QTemporaryDir temporary;
    const QDir folder(temporary.path());
    const QString path = folder.filePath(u"shot.png"_s);
    EXPECT_EQ(PngFile::writeAtomically(path, "first, and longer"), std::nullopt);
    EXPECT_EQ(PngFile::writeAtomically(path, "second"), std::nullopt);
    EXPECT_EQ(contents(path), "second");

    EXPECT_TRUE(QFile::link(path, folder.filePath(u"link.png"_s)));
    EXPECT_EQ(PngFile::writeAtomically(folder.filePath(u"link.png"_s), "third"), std::nullopt);
    EXPECT_EQ(contents(path), "third");

    // A disk that fills up: the process may write no file longer than this.
    const auto previousHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit previousLimit = {};
    getrlimit(RLIMIT_FSIZE, &previousLimit);
    const rlimit limit{10'000, previousLimit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
    const auto failure = PngFile::writeAtomically(path, QByteArray(100'000, 'x'));
    setrlimit(RLIMIT_FSIZE, &previousLimit);
    std::signal(SIGXFSZ, previousHandler);
    ASSERT_TRUE(failure);
    EXPECT_THAT(failure->toStdString(),
                testing::StartsWith(path.toStdString() + ": the file cannot be written ("));
    EXPECT_EQ(contents(path), "third");
    EXPECT_EQ(folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              (QStringList{u"link.png"_s, u"shot.png"_s}));
}

TEST(PngFile, IsNotWrittenWhereNoFileCanBe) {
    const QTemporaryDir temporary;
    const QDir folder(temporary.path());
    const QString pipe = folder.filePath(u"pipe"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    struct Row {
        QString path;
        QString message;
    };
    const QString missing = folder.filePath(u"no/where.png"_s);
    for (const Row& row :
         {Row{missing, missing + u": there is no folder “"_s + folder.filePath(u"no"_s) + u"”"_s},
          Row{temporary.path(), temporary.path() + u": this is a folder"_s},
          Row{pipe, pipe + u": not a regular file"_s}})
        EXPECT_EQ(PngFile::writeAtomically(row.path, "data"), row.message);
    EXPECT_EQ(folder.entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{u"pipe"_s});
}

} // namespace
} // namespace Veilshot
