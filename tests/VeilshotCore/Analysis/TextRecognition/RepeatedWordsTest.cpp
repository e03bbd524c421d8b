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
                ElementsAre(" Ottavia Brignole, room 4\t≡\ta day Ottavia has noted"));
    EXPECT_THAT(repeats(u"Brignole, Ottavia"_s, u"OTTAVIA"_s), ElementsAre("Brignole, Ottavia\t≡\tOTTAVIA"));
    EXPECT_THAT(repeats(u"Name: Ottavia"_s, u"Ottavia"_s), ElementsAre());
    EXPECT_THAT(repeats(u"Ottavia Brignole"_s, u"Ottavia Brignole"_s), ElementsAre());
    EXPECT_THAT(repeats(u"Ottavia Brignole"_s, u"ask ottavia or Ottavian"_s), ElementsAre());
    EXPECT_THAT(repeats(u"Ottavia Brignole"_s, u"ottavia@Ottavia.example /home/Ottavia"_s), ElementsAre());
}

TEST(RepeatedWords, HaveTheirBoxesAndNothingElseHasAny) {
    const QRect place(100, 40, 170, 12); // ten pixels for each character
    const auto lines = linesOfRepeatedWords(
        {evenReading(u"Ottavia Brignole"_s, {10, 10, 400, 12}), evenReading(u"room 4, Ottavia's"_s, place)},
        {1000, 1000});
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].boundingBox().toPixels({1000, 1000}).toRect(), QRect(180, 40, 70, 12));
    EXPECT_EQ(lines[0].boundingBox({0, 16}), std::nullopt);
}

} // namespace
} // namespace Veilshot
