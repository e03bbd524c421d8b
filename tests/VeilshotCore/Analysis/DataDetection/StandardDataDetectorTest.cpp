#include "VeilshotCore/Analysis/DataDetection/StandardDataDetector.h"

#include <QString>
#include <algorithm>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

using Type = DataMatch::Type;

TEST(StandardDataDetector, ListsAllTypesInTextOrder) {
    const QString phone = u"+45 20 12 34 56"_s;
    const QString address = u"Vestergade 5, 5000 Odense C"_s;
    const QString link = u"jane@example.com"_s;
    const QString line = phone + u" | "_s + address + u" | "_s + link;
    const std::vector<DataMatch> expected{
        {Type::phoneNumber, {0, phone.size()}, {}},
        {Type::address, {phone.size() + 3, address.size()}, {}},
        {Type::link, {line.size() - link.size(), link.size()}, u"mailto:jane@example.com"_s},
    };
    EXPECT_EQ(StandardDataDetector().matches(line), expected);
    EXPECT_EQ(StandardDataDetector().matches({}), std::vector<DataMatch>{});
}

TEST(StandardDataDetector, CountsRangesInUtf16BehindCharactersOfAnyWidth) {
    const QString details[] = {u"+45 20 12 34 56"_s, u"example.com"_s, u"jane@example.com"_s,
                               u"Nørrebrogade 12, 2200 København N"_s};
    const QString loneSurrogate(QChar(0xD83D));
    for (const QString& prefix :
         {u"æøå – "_s, u"😀😀 – "_s, u"“hej” ’x’ – "_s, u"é – "_s, loneSurrogate + u" – "_s}) {
        for (const QString& detail : details) {
            const std::vector<DataMatch> matches = StandardDataDetector().matches(prefix + detail + u" 😀"_s);
            ASSERT_EQ(matches.size(), 1u) << (prefix + detail).toStdString();
            EXPECT_EQ(matches[0].range, (TextRange{prefix.size(), detail.size()}))
                << (prefix + detail).toStdString();
        }
    }
}

TEST(StandardDataDetector, SearchesWhatTheLineProbablyWasAndTellsWhereItStands) {
    const std::pair<QString, Type> rows[] = {
        {u"O7700 9O04l8"_s, Type::phoneNumber},        {u"+45_ 20 12 34 S6"_s, Type::phoneNumber},
        {u"Denver, CO 8O2O3"_s, Type::address},        {u"docs.example. com/v2"_s, Type::link},
        {u"shop.example,com"_s, Type::link},           {u"anna._berg@mail._example.com"_s, Type::link},
        {u"4539 l488 0343 6467"_s, Type::phoneNumber}, {u"KK 44719023"_s, Type::phoneNumber},
    };
    const QString prefix = u"😀 æ – "_s;
    for (const auto& [detail, type] : rows) {
        const QString line = prefix + detail + u" – 😀"_s;
        const TextRange whole{prefix.size(), detail.size()};
        EXPECT_TRUE(std::ranges::any_of(StandardDataDetector().matches(line), [&](const DataMatch& match) {
            return match.type == type && match.range == whole;
        })) << line.toStdString();
    }
    for (const QString& code : {u"self._int.value"_s, u"Enum.__new__"_s, u"went home. compare"_s})
        EXPECT_EQ(StandardDataDetector().matches(code), std::vector<DataMatch>{}) << code.toStdString();
}

TEST(StandardDataDetector, FindsWhatStandsBehindALongRunOfAnything) {
    constexpr qsizetype length = 2000;
    for (const QString& part :
         {u"ab.c"_s, u"_"_s, u"Ab’"_s, u"\t"_s, u"7"_s, u"1:"_s, u"A1 "_s, u"a@b.dk,1 A,\"9000"_s}) {
        for (const QString& detail :
             {u"hunter22x"_s, u"anna.berg@parcelio.dk"_s, u"+45_ 20 12 34 56"_s, u"Nørrebrogade 12"_s}) {
            const QString line = part.repeated(length / part.size()) + u" ; pwd= "_s + detail;
            const TextRange whole{line.size() - detail.size(), detail.size()};
            EXPECT_TRUE(std::ranges::any_of(StandardDataDetector().matches(line),
                                            [&](const DataMatch& match) { return match.range == whole; }))
                << part.toStdString() << detail.toStdString();
        }
    }
}

} // namespace
} // namespace Veilshot
