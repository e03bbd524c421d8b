#include "VeilshotCore/Analysis/TextRecognition/RepeatedWords.h"

#include "EvenReading.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

std::vector<std::string> textsOf(const std::vector<SegmentReading>& readings) {
    std::vector<std::string> texts;
    for (const RecognizedLine& line : linesOfRepeatedWords(readings, {1000, 1000}))
        texts.push_back(line.text().toStdString());
    return texts;
}

TEST(RepeatedWords, AreLaidBesideTheRunsThatHoldThem) {
    const QRect first(10, 10, 400, 12), second(10, 40, 400, 12);
    const auto repeats = [&](const QString& passage, const QString& place) {
        return textsOf({evenReading(passage, first), evenReading(place, second)});
    };
    using testing::ElementsAre;
    EXPECT_THAT(repeats(u"Guest: Ottavia Brignole, room 4"_s, u"on a day Ottavia has noted it down"_s),
                ElementsAre(" Ottavia Brignole, room 4\t\uE000\ta day Ottavia has noted"));
    EXPECT_THAT(repeats(u"Brignole, Ottavia"_s, u"OTTAVIA"_s),
                ElementsAre("Brignole, Ottavia\t\uE000\tOTTAVIA"));
    EXPECT_THAT(textsOf({evenReading(u"Ottavia Brignole"_s, first),
                         evenReading(u"Ottavia Brignole <ob@x.example>"_s, second),
                         evenReading(u"Ottavia"_s, {10, 70, 100, 12})}),
                ElementsAre("Ottavia Brignole <ob@x.example>\t\uE000\tOttavia"));
    EXPECT_THAT(repeats(u"Name: Ottavia"_s, u"Ottavia"_s), ElementsAre());
    EXPECT_THAT(repeats(u"Ottavia Brignole"_s, u"Ottavia Brignole"_s), ElementsAre());
    EXPECT_THAT(repeats(u"Ottavia Brignole"_s, u"ask ottavia or Ottavian"_s), ElementsAre());
    EXPECT_THAT(repeats(u"Ottavia Brignole"_s, u"ottavia@Ottavia.example /home/Ottavia"_s), ElementsAre());
}

TEST(RepeatedWords, HaveTheirBoxesAndNothingElseHasAny) {
    const QRect place(100, 40, 170, 12), other(500, 70, 80, 12); // ten pixels for each character
    const auto lines =
        linesOfRepeatedWords({evenReading(u"Ottavia Brignole"_s, {10, 10, 400, 12}),
                              evenReading(u"room 4, Ottavia's"_s, place), evenReading(u"BRIGNOLE"_s, other)},
                             {1000, 1000});
    ASSERT_EQ(lines.size(), 1u);
    const auto boxOf = [&](TextRange range) {
        return lines[0].boundingBox(range)->toPixels({1000, 1000}).toRect();
    };
    EXPECT_EQ(boxOf({19, lines[0].text().size() - 30}), QRect(180, 40, 70, 12));
    EXPECT_EQ(boxOf({lines[0].text().size() - 8, 8}), other);
    EXPECT_EQ(lines[0].boundingBox({0, 16}), std::nullopt);
}

} // namespace
} // namespace Veilshot
