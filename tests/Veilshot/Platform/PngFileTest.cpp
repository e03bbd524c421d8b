#include "Veilshot/Platform/PngFile.h"

#include "Veilshot/Platform/ImageDecoder.h"
#include "tests/Veilshot/Platform/ImageSamples.h"

#include <QColorSpace>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

using namespace ImageSamples;

TEST(PngFile, HoldsPixelsAndNothingElse) {
    QImage image = gradient({300, 200});
    image.setText(u"Comment"_s, u"taken by Nobody"_s);
    image.setColorSpace(QColorSpace::SRgb);
    image.setDotsPerMeterX(5905);
    image.setDevicePixelRatio(2);
    QImage transparent = image.convertToFormat(QImage::Format_ARGB32);
    transparent.setPixelColor(0, 0, QColor(9, 8, 7, 0));
    constexpr char withoutAlpha = 2, withAlpha = 6; // colour types of PNG
    for (const auto& [picture, colorType] :
         {std::pair(image, withoutAlpha),
          {transparent, withAlpha},
          {image.convertToFormat(QImage::Format_Grayscale8), withoutAlpha}}) {
        const QByteArray png = PngFile::encodePng(picture);
        std::vector<QByteArray> types;
        for (const PngChunk& chunk : pngChunks(png)) {
            if (types.empty() || types.back() != chunk.type)
                types.push_back(chunk.type);
        }
        EXPECT_THAT(types, testing::ElementsAre("IHDR", "IDAT", "IEND"));
        EXPECT_EQ(pngChunks(png).front().data.at(9), colorType);
        const DecodedImage decoded = ImageDecoder::decodeBytes(png, u"png"_s);
        ASSERT_TRUE(std::holds_alternative<QImage>(decoded));
        EXPECT_EQ(std::get<QImage>(decoded), ImageDecoder::toBitmap(picture));
    }
    EXPECT_TRUE(PngFile::encodePng({}).isEmpty());
}

} // namespace
} // namespace Veilshot
