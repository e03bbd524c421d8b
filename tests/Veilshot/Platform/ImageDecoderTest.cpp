#include "Veilshot/Platform/ImageDecoder.h"

#include "tests/Veilshot/FileContents.h"
#include "tests/Veilshot/Platform/ImageSamples.h"

#include <QColorSpace>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <map>
#include <string_view>
#include <sys/fsuid.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::string_view_literals;

namespace Veilshot {
namespace {

using namespace ImageSamples;

const QColor red(255, 0, 0), green(0, 255, 0), blue(0, 0, 255), white(255, 255, 255);

QByteArray sample(const char* name) {
    return FileContents::read(QStringLiteral(VEILSHOT_TEST_DATA "/formats/") + QLatin1StringView(name));
}

std::string messageFor(const DecodedImage& outcome) {
    const ImageError* error = std::get_if<ImageError>(&outcome);
    return error ? error->message.toStdString() : "(decoded)";
}

/// The image, or a null one after a failed expectation.
QImage decoded(const QByteArray& bytes) {
    const DecodedImage outcome = ImageDecoder::decodeBytes(bytes, u"sample"_s);
    const QImage* image = std::get_if<QImage>(&outcome);
    EXPECT_TRUE(image) << messageFor(outcome);
    return image ? *image : QImage();
}

void expectBitmapFormat(const QImage& image) {
    EXPECT_EQ(image.format(), QImage::Format_RGBA8888);
    EXPECT_FALSE(image.colorSpace().isValid());
    EXPECT_EQ(image.devicePixelRatio(), 1);
    EXPECT_EQ(image.dotsPerMeterX(), 3780);
    EXPECT_TRUE(image.textKeys().isEmpty());
}

/// An image with everything attached that a file can carry.
QImage laden(QImage image) {
    image.setColorSpace(QColorSpace::SRgb);
    image.setDotsPerMeterX(5905);
    image.setText(u"Author"_s, u"Nobody"_s);
    return image;
}

TEST(ImageDecoder, TurnsEveryKindOfImageIntoTheOneBitmapFormat) {
    const QImage picture = laden(quadrants());
    const auto converted = [&](QImage::Format format) { return picture.convertToFormat(format); };
    const struct {
        const char* name;
        QByteArray bytes;
        int tolerance;
    } rows[] = {
        {"PNG", encoded(picture, "png"), 0},
        {"PNG, 16 bits", encoded(converted(QImage::Format_RGBA64), "png"), 0},
        {"PNG, palette", encoded(converted(QImage::Format_Indexed8), "png"), 0},
        {"JPEG", encoded(picture, "jpeg"), 8},
        {"JPEG, four inks", sample("quadrants-cmyk.jpg"), 12},
        {"BMP", encoded(picture, "bmp"), 0},
        {"GIF", sample("quadrants.gif"), 0},
        {"TIFF", encoded(picture, "tiff"), 0},
        {"TIFF, two pages", sample("two-pages.tif"), 0},
        {"WebP", encoded(picture, "webp"), 0},
        {"PPM", encoded(picture, "ppm"), 0},
        {"HEIC", sample("quadrants.heic"), 8},
        {"AVIF", sample("quadrants.avif"), 8},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const QImage image = decoded(row.bytes);
        expectBitmapFormat(image);
        EXPECT_EQ(image.size(), QSize(48, 32));
        EXPECT_LE(largestDifference(quarterColors(image), {red, green, blue, white}), row.tolerance);
    }
}

TEST(ImageDecoder, KeepsExtremeShapesAndGreyLevels) {
    for (const QSize size : {QSize(1, 1), QSize(1, 20000), QSize(20000, 1)}) {
        for (const char* format : {"png", "jpeg"})
            EXPECT_EQ(decoded(encoded(gradient(size), format)).size(), size) << format;
    }
    QImage grey(256, 1, QImage::Format_Grayscale8);
    for (int level = 0; level < 256; ++level)
        grey.bits()[level] = uchar(level);
    for (const char* format : {"png", "pgm"})
        EXPECT_EQ(decoded(encoded(grey, format)), grey.convertToFormat(QImage::Format_RGBA8888)) << format;
}

TEST(ImageDecoder, KeepsAlphaStraightButNoColourThatNobodySees) {
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixelColor(0, 0, QColor(200, 100, 50, 3));
    image.setPixelColor(1, 0, QColor(10, 20, 30, 0));
    const QImage bitmap = decoded(encoded(image, "png"));
    EXPECT_EQ(bitmap.pixelColor(0, 0), QColor(200, 100, 50, 3));
    EXPECT_EQ(bitmap.pixelColor(1, 0), QColor(0, 0, 0, 0));
    const std::vector<QColor> corners = quarterColors(decoded(sample("transparent.heic")));
    EXPECT_LE(largestDifference({corners[0], corners[1]}, {red, green}), 8);
    EXPECT_EQ(corners[3].alpha(), 0);
}

TEST(ImageDecoder, TurnsPhotographsUpright) {
    const QByteArray jpeg = encoded(quadrants(), "jpeg");
    for (const auto& [bytes, corners] :
         {std::pair(withExifOrientation(jpeg, 3), std::vector{white, blue, green, red}),
          {withExifOrientation(jpeg, 6), {blue, red, white, green}},
          {withExifOrientation(jpeg, 7), {white, green, blue, red}},
          {sample("rotated.heic"), {blue, red, white, green}}})
        EXPECT_LE(largestDifference(quarterColors(decoded(bytes)), corners), 8);
}

TEST(ImageDecoder, ConvertsOtherColourSpacesToSrgb) {
    // Pure red of sRGB has these values in Display P3.
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(QColor(234, 51, 35));
    QImage wide = image;
    wide.setColorSpace(QColorSpace::DisplayP3);
    for (const char* format : {"png", "jpeg", "tiff", "webp"}) {
        EXPECT_LE(largestDifference({decoded(encoded(wide, format)).pixelColor(5, 5)}, {red}), 3) << format;
        EXPECT_LE(
            largestDifference({decoded(encoded(image, format)).pixelColor(5, 5)}, {QColor(234, 51, 35)}), 2)
            << format;
    }
    expectBitmapFormat(ImageDecoder::toBitmap(laden(wide)));
    EXPECT_LE(largestDifference({ImageDecoder::toBitmap(wide).pixelColor(0, 0)}, {red}), 3);
}

TEST(ImageDecoder, NeverReturnsAPictureOfHalfTheData) {
    const QImage picture = gradient({200, 150});
    const struct {
        const char* name;
        QByteArray bytes;
    } rows[] = {
        {"PNG", encoded(picture, "png")},
        {"PNG, palette", encoded(picture.convertToFormat(QImage::Format_Indexed8), "png")},
        {"JPEG", encoded(picture, "jpeg", 80)},
        {"BMP", encoded(picture, "bmp")},
        {"BMP, palette", encoded(picture.convertToFormat(QImage::Format_Indexed8), "bmp")},
        {"GIF", sample("gradient.gif")},
        {"TIFF", encoded(picture, "tiff")},
        {"TIFF, two pages", sample("two-pages.tif")},
        {"WebP", encoded(picture, "webp", 80)},
        {"PPM", encoded(picture, "ppm")},
        {"XBM", encoded(picture, "xbm")},
        {"HEIC", sample("quadrants.heic")},
        {"AVIF", sample("quadrants.avif")},
    };
    testing::internal::CaptureStderr();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const QImage whole = decoded(row.bytes);
        const qsizetype size = row.bytes.size();
        for (const qsizetype kept :
             {size - 1, size - 5, size - 40, size * 9 / 10, size / 2, size / 4, size / 20}) {
            const DecodedImage outcome = ImageDecoder::decodeBytes(row.bytes.first(kept), u"part"_s);
            // The very last bytes may hold no pixels: then a complete picture is as good as an error.
            if (const QImage* image = std::get_if<QImage>(&outcome)) {
                EXPECT_EQ(*image, whole) << kept << " of " << size;
                EXPECT_TRUE(kept > size / 2 || row.name == "TIFF, two pages"sv) << kept << " of " << size;
            } else {
                EXPECT_THAT(messageFor(outcome), testing::StartsWith("part: "));
            }
        }
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(ImageDecoder, SaysWhyDataIsNotAnImageAndNothingElse) {
    const QByteArray good = encoded(quadrants(), "png");
    QByteArray changed = good;
    changed[changed.size() - 20] = char(changed[changed.size() - 20] ^ 0x55);
    QByteArray wideJpeg = encoded(quadrants(), "jpeg");
    wideJpeg.replace(wideJpeg.indexOf("\xff\xc0") + 5, 4, "\xea\x60\xea\x60");
    const std::string damaged = "x: the image data is damaged or of a kind that cannot be read";
    const std::string unknown = "x: not an image that can be read";
    const std::string tooLarge =
        "x: the image is 60000×60000 pixels (3600 megapixels); the limit is 512 megapixels";
    const struct {
        const char* name;
        QByteArray bytes;
        std::string message;
    } rows[] = {
        {"nothing", {}, unknown},
        {"text", "Dear reader,\nthis is a letter.\n", unknown},
        {"a drawing", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'></svg>", unknown},
        {"a film",
         QByteArray("\0\0\0\x18"
                    "ftypmp42\0\0\0\0mp42isom",
                    24),
         unknown},
        {"a changed byte", changed, damaged},
        {"too few pixels",
         png({pngHeader(9, 9), {"IDAT", qCompress(QByteArray(20, 0)).sliced(4)}, {"IEND", {}}}), damaged},
        {"a header of no area", png({pngHeader(0, 9), {"IEND", {}}}), damaged},
        {"a huge PNG",
         png({pngHeader(60000, 60000), {"IDAT", qCompress(QByteArray(9999, 0)).sliced(4)}, {"IEND", {}}}),
         tooLarge},
        {"a huge JPEG", wideJpeg, tooLarge},
        {"an endless PNG", png({pngHeader(2147483647, 2147483647), {"IEND", {}}}), damaged},
        {"a signature alone", good.first(8), "x: the image data ends too early"},
    };
    testing::internal::CaptureStderr();
    for (const auto& row : rows)
        EXPECT_EQ(messageFor(ImageDecoder::decodeBytes(row.bytes, u"x"_s)), row.message) << row.name;
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(ImageDecoder, ReadsRegularFilesOnlyAndNamesThemInErrors) {
    const QTemporaryDir folder;
    const auto write = [&](const QString& name, const QByteArray& bytes) {
        return FileContents::write(folder.filePath(name), bytes);
    };
    const QByteArray png = encoded(quadrants(), "png");
    // The ending says one thing, the content another; a name in Danish; a link.
    const QString misnamed = write(u"skærmbillede æøå.jpg"_s, png);
    EXPECT_TRUE(QFile::link(misnamed, folder.filePath(u"link"_s)));
    for (const QString& path : {misnamed, folder.filePath(u"link"_s)}) {
        const DecodedImage outcome = ImageDecoder::decodeFile(path);
        ASSERT_TRUE(std::holds_alternative<QImage>(outcome)) << messageFor(outcome);
        EXPECT_EQ(quarterColors(std::get<QImage>(outcome)), quarterColors(quadrants()));
    }

    EXPECT_EQ(::mkfifo(QFile::encodeName(folder.filePath(u"pipe"_s)).constData(), 0600), 0);
    QFile sparse(write(u"sparse.png"_s, png));
    EXPECT_TRUE(sparse.resize(1'000'000'001));
    for (const auto& [path, reason] : std::map<QString, std::string>{
             {folder.filePath(u"missing.png"_s), "there is no such file"},
             {misnamed + u"/shot.png"_s, "there is no such file"},
             {folder.path(), "this is a folder"},
             {folder.filePath(u"pipe"_s), "not a regular file"},
             {write(u"empty.png"_s, {}), "the file is empty"},
             {sparse.fileName(), "the file is too large (1000000001 bytes; the limit is 1000000000)"},
             {write(u"letter.png"_s, "Dear reader"), "not an image that can be read"},
         })
        EXPECT_EQ(messageFor(ImageDecoder::decodeFile(path)), path.toStdString() + ": " + reason);
    EXPECT_EQ(messageFor(ImageDecoder::decodeFile(u"two\nlines.png"_s)),
              "two?lines.png: there is no such file");

    const QString secret = write(u"secret.png"_s, png);
    QFile::setPermissions(secret, {});
    QFile::setPermissions(folder.path(), QFile::Permissions(0x7755)); // others may look for it, not into it
    // The superuser may read everything; files are then looked at as somebody else.
    const int self = ::setfsuid(::geteuid() == 0 ? 65534 : ::geteuid());
    const DecodedImage forbidden = ImageDecoder::decodeFile(secret);
    ::setfsuid(uid_t(self));
    EXPECT_EQ(messageFor(forbidden), secret.toStdString() + ": permission denied");
}

} // namespace
} // namespace Veilshot
