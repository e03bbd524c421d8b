#include "VeilshotCore/Analysis/TextRecognition/LineAssembly.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

SegmentReading reading(const QString& text, const QRect& box) {
    return {text, {{{0, text.size()}, QRectF(box)}}, box};
}

/// In a font whose characters stand 8 pixels apart, 12 high.
SegmentReading inFixedWidth(const QString& text, const QPoint& position) {
    SegmentReading reading{text, {}, QRect(position, QSize(8 * static_cast<int>(text.size()), 12))};
    for (qsizetype index = 0; index < text.size(); ++index) {
        if (text[index] != u' ')
            reading.symbols.push_back(
                {{index, 1}, QRectF(position.x() + 8 * static_cast<int>(index), 0, 6, 12)});
    }
    return reading;
}

std::vector<std::string> textsOf(const std::vector<SegmentReading>& readings) {
    std::vector<std::string> texts;
    for (const RecognizedLine& line : assembleLines(readings, {1000, 1000}))
        texts.push_back(line.text().toStdString());
    return texts;
}

TEST(LineAssembly, JoinsALabelWithTheValueInTheNextColumnOnly) {
    const std::vector<SegmentReading> readings{
        reading(u"Navn:"_s, {10, 10, 40, 12}),  reading(u"Anna"_s, {150, 10, 40, 12}),
        reading(u"Lund"_s, {220, 10, 40, 12}),  reading(u"By:"_s, {10, 40, 40, 12}),
        reading(u"vejle"_s, {150, 70, 40, 12}), reading(u"Tlf:"_s, {10, 100, 40, 12}),
        reading(u"far"_s, {390, 100, 40, 12})};
    EXPECT_THAT(textsOf(readings), testing::ElementsAre("Navn: Anna", "Lund", "By:", "vejle", "Tlf:", "far"));
    EXPECT_EQ(assembleLines(readings, {1000, 1000})[0].boundingBox().toPixels({1000, 1000}).toRect(),
              QRect(10, 10, 180, 12));
}

TEST(LineAssembly, MakesALineTornAtAWideBlankWholeAgain) {
    const std::vector<SegmentReading> code{inFixedWidth(u"\"tel\": \"+1"_s, {0, 0}),
                                           inFixedWidth(u"(423)"_s, {88, 0}),
                                           inFixedWidth(u"670-6361\" },"_s, {136, 0})};
    EXPECT_THAT(textsOf(code), testing::ElementsAre("\"tel\": \"+1 (423) 670-6361\" },"));
    const RecognizedLine line = assembleLines(code, {1000, 1000})[0];
    EXPECT_EQ(line.boundingBox({11, 5})->toPixels({1000, 1000}).toRect(), QRect(88, 0, 38, 12));

    const std::vector<SegmentReading> cells{inFixedWidth(u"Havnegade"_s, {0, 0}),
                                            inFixedWidth(u"Vejle"_s, {96, 0})}; // three blanks
    EXPECT_THAT(textsOf(cells), testing::ElementsAre("Havnegade", "Vejle"));

    EXPECT_THAT(
        textsOf({reading(u"call +45 22 27"_s, {0, 0, 90, 12}), reading(u"83 49 today"_s, {108, 0, 70, 12})}),
        testing::ElementsAre("call +45 22 27 83 49 today"));
    EXPECT_THAT(textsOf({reading(u"22 27"_s, {0, 0, 40, 12}), reading(u"83 49"_s, {58, 0, 40, 12})}),
                testing::ElementsAre("22 27", "83 49"));
}

TEST(LineAssembly, WritesSignsSoThatNoNumberToCallComesOfThem) {
    const std::pair<QString, QString> rows[] = {
        {u"2025-03-18 08:15:03 ok"_s, u"2025‑03‑18 08:15:03 ok"_s},
        {u"2025-03-18T08:15:03"_s, u"2025‑03‑18T08:15:03"_s},
        {u"03-92-2025 @4:10"_s, u"03‑92‑2025 04:10"_s},
        {u"born 22-08-1985"_s, u"born 22-08-1985"_s},
        {u"2025-03-18 in Ry"_s, u"2025‑03‑18 in Ry"_s},
        {u"1985-03-18 in Ry"_s, u"1985-03-18 in Ry"_s},
        {u"født 2019-06-03"_s, u"født 2019-06-03"_s},
        {u"GET / HTTP/1.1\" 200 5120"_s, u"GET / HTTP/1.1\" 200\u00a05120"_s},
        {u"Leave 2024-2025"_s, u"Leave 2024‑2025"_s},
        {u"Faktura 2025-118, order no. A4410-228-71."_s, u"Faktura 2025‑118, order no. A4410‑228‑71."_s},
        {u"my order, 555-010-2277"_s, u"my order, 555-010-2277"_s},
        {u"#20391-884"_s, u"#20391‑884"_s},
        {u"1 204 882"_s, u"1\u00a0204\u00a0882"_s},
        {u"+1 204 882"_s, u"+1 204 882"_s},
        {u"1 204 882 1234"_s, u"1 204 882 1234"_s},
        {u"Hakon @degard on"_s, u"Hakon Ødegard on"_s},
        {u"Mercy Ogunleye @mercymakes"_s, u"Mercy Ogunleye @mercymakes"_s},
        {u"Ask @hakon.o or a@b.dk"_s, u"Ask @hakon.o or a@b.dk"_s},
        {u"+2@ 2 555@ 1188, 919-555-@164"_s, u"+20 2 5550 1188, 919-555-0164"_s},
        {u"97 55 @4 48, DK5@@@40@0440116243"_s, u"97 55 04 48, DK50004000440116243"_s},
        {u"20304050@2mail.dk 20304050@163.com"_s, u"20304050@2mail.dk 20304050@163.com"_s},
        {u"1280 sold @250, 100 200 @24.50"_s, u"1280 sold @250, 100 200 @24.50"_s},
    };
    for (const auto& [recognized, written] : rows)
        EXPECT_THAT(textsOf({reading(recognized, {0, 0, 90, 9})}),
                    testing::ElementsAre(written.toStdString()));
}

} // namespace
} // namespace Veilshot
