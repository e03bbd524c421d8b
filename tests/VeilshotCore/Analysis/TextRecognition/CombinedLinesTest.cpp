#include "VeilshotCore/Analysis/TextRecognition/CombinedLines.h"

#include "EvenReading.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

using Texts = std::vector<std::string>;

/// What the lines hold of which some part has a box here.
Texts linesWith(const std::vector<SegmentReading>& readings, const QRect& place) {
    Texts texts;
    for (const RecognizedLine& line : combinedLines(readings, {1000, 1000})) {
        if (line.boundingBox().toPixels({1000, 1000}).intersects(place))
            texts.push_back(line.text().toStdString());
    }
    return texts;
}

TEST(CombinedLines, ReadOnWhereTwoSegmentsTellMoreTogether) {
    const QRect first(10, 10, 40, 12), beside(150, 10, 90, 12), below(10, 30, 90, 12), wide(10, 10, 400, 12);
    const auto labelled = [&](const QRect& place) {
        return linesWith({evenReading(u"Born"_s, first), evenReading(u"4 July 1961"_s, place)}, place);
    };
    EXPECT_EQ(labelled(beside), Texts{"Born\t4 July 1961"});
    EXPECT_EQ(labelled(below), Texts{"Born\t4 July 1961"});
    EXPECT_EQ(labelled({500, 30, 90, 12}), Texts{});
    EXPECT_EQ(labelled({26, 44, 90, 12}), Texts{"Born\t4 July 1961"}); // in a frame
    const QRect framed(26, 44, 90, 12);
    EXPECT_EQ(linesWith({evenReading(u"Surname"_s, first), evenReading(u"Cichy"_s, framed)}, framed),
              Texts{"Surname\tCichy"});
    for (const QString& label :
         {u"Passport"_s, u"Guest’s licence / ID no. (optional)"_s, u"birth_date"_s, u"Wi-Fi password"_s,
          u"Home address"_s, u"Postnr. og by *"_s, u"shop/db-password"_s, u"26 Number of identity card"_s})
        EXPECT_EQ(linesWith({evenReading(label, first), evenReading(u"X 9"_s, beside)}, beside),
                  Texts{(label + u"\tX 9"_s).toStdString()});
    for (const QString& label :
         {u"Member"_s, u"Order no."_s, u"E-mail address"_s, u"Posted by"_s, u"ID"_s, u"12 Home address"_s})
        EXPECT_EQ(linesWith({evenReading(label, first), evenReading(u"X 9"_s, beside)}, beside), Texts{});
    const QRect nextRow(150, 30, 90, 12);
    EXPECT_EQ(linesWith({evenReading(u"Recovery phrase"_s, first),
                         evenReading(u"ember lotus crane vivid"_s, beside),
                         evenReading(u"saddle march noodle prism"_s, nextRow)},
                        nextRow),
              Texts{"Recovery phrase\tsaddle march noodle prism"});
    // A town and a house number count among other labels of addresses only.
    const auto inForm = [&](const QString& street) {
        return linesWith({evenReading(street, {10, 10, 60, 12}), evenReading(u"Nr."_s, {90, 10, 20, 12}),
                          evenReading(u"By"_s, {150, 10, 20, 12}), evenReading(u"17B"_s, {90, 30, 30, 12}),
                          evenReading(u"Ry"_s, {150, 30, 20, 12})},
                         {90, 30, 90, 12});
    };
    EXPECT_EQ(inForm(u"Vej"_s), (Texts{"Nr.\t17B", "By\tRy"}));
    EXPECT_EQ(inForm(u"Art"_s), Texts{});

    struct Row {
        QString upper;
        QString lower;
        std::string together;
    };
    const Row rows[] = {
        {u"Leaving drinks for Hyacinth"_s, u"Mbeki"_s, "Leaving drinks for Hyacinth Mbeki"},
        {u"Desmond"_s, u"Mbeki"_s, ""},
        {u"12 Mill Road, Savannah, GA"_s, u"31446"_s, "12 Mill Road, Savannah, GA 31446"},
        {u"Havnegade 52C,"_s, u"3. th"_s, "Havnegade 52C, 3. th"},
        {u"Havnegade 52C,"_s, u"Tommerup St."_s, "Havnegade 52C, Tommerup St."},
        {u"Bøgevej 8, 5230 Odense"_s, u"M?"_s, "Bøgevej 8, 5230 Odense M?"},
        {u"https://mode.samtale.exam"_s, u"ple/r/77-kvist"_s, "https://mode.samtale.example/r/77-kvist"},
        {u"https://mode.samtale.dk"_s, u"og resten"_s, ""},
        {u"Bo Lund, 98 09 71"_s, u"69"_s, "Bo Lund, 98 09 71 69"},
        {u"you are welcome to call Max on 60 98"_s, u"89 88 on working days"_s,
         "are welcome to call Max on 60 98 89 88 on working days"},
        {u"Ja, det er Gl. Kongevej 175, 2. tv,"_s, u"3000 Helsingør. Ring på"_s,
         "Ja, det er Gl. Kongevej 175, 2. tv, 3000 Helsingør. Ring på"},
        {u"Bøgevej 8, 1. tv, 3600"_s, u"Frederikssund"_s, "Bøgevej 8, 1. tv, 3600 Frederikssund"},
        {u"Festen er på Bøgevej 8, 8541"_s, u"Skødstrup, lørdag kl. 14"_s,
         "Festen er på Bøgevej 8, 8541 Skødstrup, lørdag kl. 14"},
        {u"7106 Sycamore Bend, Takoma Park, MD"_s, u"20912. Ring the bell"_s,
         "7106 Sycamore Bend, Takoma Park, MD 20912. Ring the bell"},
        {u"Alma Gade, 24"_s, u"45 86 97"_s, "Alma Gade, 24 45 86 97"},
        {u"write to odalys.ferrer@lighthouse-"_s, u"tickets.example"_s,
         "odalys.ferrer@lighthouse-tickets.example"},
        {u"remote login 9shxf25a-gd0xzse0-"_s, u"sn3heun1f5h8 is valid"_s, "9shxf25a-gd0xzse0-sn3heun1f5h8"},
        {u"you are welcome to call name: 60 98"_s, u"89 88 on working days"_s, "60 98 89 88 on working days"},
        {u"barrels to Old Forge"_s, u"Cottage, 3 Pound Lane, Hexley"_s,
         "barrels to Old Forge Cottage, 3 Pound Lane, Hexley"},
        {u"98 09 71"_s, u"69"_s, {}},                                       // a column of numbers
        {u"Anna Lund"_s, u"Bo Berg"_s, {}},                                 // a list
        {u"accepted the key on port 50022"_s, u"08:15:11.203 trace"_s, {}}, // a log
    };
    for (const Row& row : rows) {
        const Texts expected = row.together.empty() ? Texts{} : Texts{row.together};
        EXPECT_EQ(linesWith({evenReading(row.upper, wide), evenReading(row.lower, below)}, below), expected);
    }
}

TEST(CombinedLines, JoinAnAddressThatStandsBelowEachOther) {
    const QRect street(10, 10, 140, 12), town(10, 30, 120, 12), postcode(10, 50, 60, 12);
    EXPECT_EQ(linesWith({evenReading(u"7427 Vista del Sol"_s, street),
                         evenReading(u"Burlington, VT 05470"_s, town)},
                        town),
              Texts{"7427 Vista del Sol, Burlington, VT 05470"});
    EXPECT_EQ(linesWith({evenReading(u"210 Lower Marsh,"_s, street), evenReading(u"Stoke-on-Trent"_s, town),
                         evenReading(u"ST4 3ZQ"_s, postcode)},
                        street),
              Texts{"210 Lower Marsh, Stoke-on-Trent, ST4 3ZQ"});
    EXPECT_EQ(linesWith({evenReading(u"12 Mama Ngina Way"_s, street), evenReading(u"Lavington"_s, town),
                         evenReading(u"Nairobi 00100"_s, postcode)},
                        town),
              Texts{"12 Mama Ngina Way, Lavington, Nairobi 00100"});
    EXPECT_EQ(linesWith({evenReading(u"Anna Lund"_s, street), evenReading(u"3400 Hillerød"_s, town)}, town),
              Texts{});
}

/// Cells below each other, flush right, 30 pixels from row to row, the first a little apart.
std::vector<SegmentReading> columnOf(const QStringList& cells) {
    std::vector<SegmentReading> readings;
    for (int row = 0; row < cells.size(); ++row) {
        const int width = 8 * static_cast<int>(cells[row].size());
        readings.push_back(evenReading(cells[row], {400 - width, row == 0 ? 10 : 25 + 30 * row, width, 12}));
    }
    return readings;
}

TEST(CombinedLines, TellTheCellsOfAColumnTogether) {
    const std::vector<SegmentReading> names =
        columnOf({u"Guest"_s, u"Ove Juul"_s, u"Achterberg"_s, u"Hope"_s});
    EXPECT_EQ(linesWith(names, names[3].box), Texts{"Guest\t│\tOve Juul\t│\tAchterberg\t│\tHope"});
    const std::vector<SegmentReading> dates =
        columnOf({u"Born"_s, u"1.2.2014"_s, u"3.4.2013"_s, u"5.6.2014"_s});
    EXPECT_EQ(linesWith(dates, dates[3].box), Texts{"Born\t5.6.2014"});

    std::vector<SegmentReading> uneven = columnOf({u"Ove"_s, u"Bo"_s, u"Ida"_s, u"Per"_s});
    for (std::size_t row = 0; row < uneven.size(); ++row)
        uneven[row].box.translate(0, row % 2 == 1 ? 14 : 0); // pairs of label and value, not rows
    EXPECT_EQ(linesWith(uneven, uneven[3].box), Texts{});
    const std::vector<SegmentReading> numbers{
        evenReading(u"Passport"_s, {10, 10, 64, 12}), evenReading(u"K0 1"_s, {10, 34, 32, 12}),
        evenReading(u"K0 2"_s, {10, 60, 32, 12}), evenReading(u"K0 3"_s, {10, 112, 32, 12})};
    EXPECT_EQ(linesWith(numbers, numbers[3].box), Texts{"Passport\tK0 3"}); // rows of any height
}

TEST(CombinedLines, NeverGiveAWholeColumnAwayToTheLabelInItsHeader) {
    const std::vector<SegmentReading> menu =
        columnOf({u"Phone: Home"_s, u"Open Settings"_s, u"Save"_s, u"Close"_s});
    EXPECT_EQ(linesWith(menu, menu[3].box), Texts{"\t│\tOpen Settings\t│\tSave\t│\tClose"});
    const std::vector<SegmentReading> form{evenReading(u"Password:"_s, {10, 10, 60, 12}),
                                           evenReading(u"Kestrel_2338"_s, {10, 30, 80, 12})};
    EXPECT_EQ(linesWith(form, form[1].box), Texts{"Password\tKestrel_2338"});
}

TEST(CombinedLines, PlaceEachCharacterWhereItStands) {
    const QRect upper(10, 10, 420, 12), lower(10, 30, 260, 12);
    const auto lines = combinedLines({evenReading(u"you are very welcome to call Max Lund on 60 98"_s, upper),
                                      evenReading(u"89 88 on working days"_s, lower)},
                                     {1000, 1000});
    ASSERT_EQ(lines.size(), 2u);
    for (const RecognizedLine& line : lines) {
        const TextRange number{line.text().indexOf(u"60 98"), 11};
        const bool isUpper = line.boundingBox().toPixels({1000, 1000}).intersects(upper);
        const double width = isUpper ? 420 / 46.0 : 260 / 21.0;
        const QRectF expected =
            isUpper ? QRectF(430 - 5 * width, 10, 5 * width, 12) : QRectF(10, 30, 5 * width, 12);
        EXPECT_EQ(line.boundingBox(number)->toPixels({1000, 1000}).toRect(), expected.toRect());
    }
}

} // namespace
} // namespace Veilshot
