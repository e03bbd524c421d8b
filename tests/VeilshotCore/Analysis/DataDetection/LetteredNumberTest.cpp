#include "VeilshotCore/Analysis/DataDetection/LetteredNumber.h"

#include <QString>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

TEST(LetteredNumber, TakesTheSeriesAroundANumberAndNoWords) {
    struct Row {
        QString before;
        QString number;
        QString line;
    };
    const Row rows[] = {
        {u"4471 0926"_s, u"KT 4471 0926"_s, u"is KT 4471 0926."_s},
        {u"0114 496 0110"_s, u"0114 496 0110"_s, u"T 0114 496 0110"_s},
        {u"44719025"_s, u"UH44719025EA"_s, u"UH44719025EA, on"_s},
        {u"7304-18"_s, u"7304-18"_s, u"REF 7304-18 8GB"_s},
        {u"485 777 3456"_s, u"485 777 3456"_s, u"NHS 485 777 3456 A"_s},
        {u"20 12 34 56"_s, u"20 12 34 56"_s, u"HOUSE 20 12 34 56GB"_s},
        {u"+45 20 12 34 56"_s, u"+45 20 12 34 56"_s, u"BO +45 20 12 34 56"_s},
    };
    for (const Row& row : rows) {
        const TextRange found =
            withLettersOfNumber(row.line, {row.line.indexOf(row.before), row.before.size()});
        EXPECT_EQ(row.line.mid(found.location, found.length), row.number);
    }
}

} // namespace
} // namespace Veilshot
