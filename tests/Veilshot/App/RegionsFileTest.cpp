#include "Veilshot/App/RegionsFile.h"

#include <gmock/gmock.h>
#include <map>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

TEST(RegionsFile, TakesListsOfRectanglesInAnyOfThreeForms) {
    for (const QByteArray json :
         {R"([[0.25, 0.5, 0.5, 1]])", R"([{"rect": [0.75, 0.5, -0.5, 1]}])",
          R"({"image": "x", "regions": [{"kind": "email", "rect": [0.25, 0.5, 0.5, 1]}]})"}) {
        const auto parsed = parseRegions(json);
        ASSERT_TRUE(std::holds_alternative<SensitiveRegions>(parsed)) << json.toStdString();
        const auto& regions = std::get<SensitiveRegions>(parsed);
        ASSERT_EQ(regions.size(), 1u);
        EXPECT_EQ(regions[0].kind(), SensitiveKind::custom);
        EXPECT_EQ(regions[0].normalizedRect(), (NormalizedRect{0.25, 0.5, 0.5, 0.5}));
    }
    EXPECT_TRUE(std::get<SensitiveRegions>(parseRegions("[]")).empty());
}

TEST(RegionsFile, SaysWhatIsWrongInsteadOfHidingLessThanAsked) {
    for (const auto& [json, named] : std::map<QByteArray, QString>{
             {"[[0, 0, 1, 1]", u"JSON"_s},
             {"{\"rects\": []}", u"list"_s},
             {"7", u"list"_s},
             {"[[0, 0, 1, 1], [0, 0, 1]]", u"area 2"_s},
             {R"([{"rect": "all"}])", u"area 1"_s},
             {R"([[0, 0, "1", 1]])", u"area 1"_s},
             {"[[0, 0, 0, 1]]", u"outside"_s},
             {"[[120, 40, 300, 20]]", u"outside"_s}, // pixels
         }) {
        const auto parsed = parseRegions(json);
        ASSERT_TRUE(std::holds_alternative<QString>(parsed)) << json.toStdString();
        EXPECT_TRUE(std::get<QString>(parsed).contains(named)) << std::get<QString>(parsed).toStdString();
    }
}

} // namespace
} // namespace Veilshot
