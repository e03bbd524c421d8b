#include "VeilshotCore/Detection/TextPatterns.h"
#include "VeilshotCore/Detection/SensitiveTextDetector.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

/// "kind: text" for every match, so that an offset in another unit than UTF-16 shows as another text.
std::vector<std::string> found(const QString& line) {
    std::vector<std::string> texts;
    for (const auto& match : SensitiveTextDetector::matches(line))
        texts.push_back((rawValue(match.kind) + u": "_s + line.mid(match.range.location, match.range.length))
                            .toStdString());
    return texts;
}

struct Row {
    QString line;
    std::vector<std::string> expected;
};

TEST(TextPatterns, FindDetailsInLinesRuleByRule) {
    const Row rows[] = {
        {u"Skriv til S.OEST@FIRMA.DK, tak"_s, {"email: S.OEST@FIRMA.DK"}},
        {u"søren@firma.dk"_s, {}},
        {u"Write to Jane_Doe+news@mail.example.co.uk."_s, {"email: Jane_Doe+news@mail.example.co.uk"}},
        {u"jane@localhost"_s, {}},
        {u"010190-1234"_s, {"identity: 010190-1234", "phone: 010190-1234"}},
        {u"0101901234"_s, {"identity: 0101901234", "phone: 0101901234"}},
        {u"10101901234567890123"_s, {}}, // twenty digits are no card, CPR or phone number
        {u"GB28 DZTO 8014 8180 0100 28"_s,
         {"payment: GB28 DZTO 8014 8180 0100 28", "phone: 8014 8180 0100 28"}},
        {u"4111 1111 1111 1111"_s, {"payment: 4111 1111 1111 1111"}},
        {u"4111 1111 1111 1112"_s, {}},
        {u"4111-1111-1111-1111 "_s, {"payment: 4111-1111-1111-1111 "}},
        {u"+45 12 34 56 78"_s, {"phone: +45 12 34 56 78"}},
        {u"12-34-5"_s, {}},
        {u"(555) 010-9999"_s, {"phone: 555) 010-9999"}},
        {u"see https://a.example/x(1) and WWW.EXAMPLE.ORG/a_b"_s,
         {"web: https://a.example/x", "web: WWW.EXAMPLE.ORG/a_b"}},
        {u"from 10.0.0.255 not 256.1.1.1"_s, {"web: 10.0.0.255"}},
        {u"key sk_live_51Hxyz_ABCDEFGHIJ"_s, {"secret: sk_live_51Hxyz_ABCDEFGHIJ"}},
        {u"sk_tooshort12345"_s, {}},
        {u"pk_abcdefghijklmnopqrstuvwxyz012345"_s,
         {"secret: pk_abcdefghijklmnopqrstuvwxyz012345", "secret: pk_abcdefghijklmnopqrstuvwxyz012345"}},
        {u"3e0d5a2c9b7f4816a0c3d2e1f4b5a697"_s, {"secret: 3e0d5a2c9b7f4816a0c3d2e1f4b5a697"}},
        {u"3e0d5a2c9b7f4816a0c3d2e1f4b5a69"_s, {}},
        {u""_s, {}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(found(row.line), row.expected) << row.line.toStdString();
}

TEST(TextPatterns, CountOffsetsInUtf16BehindLettersOutsideAscii) {
    for (const QString& before : {u"æøå “Åse” "_s, u"😀👩‍👧 "_s, u"𝔘𝔫𝔦 – "_s}) {
        const auto matches = SensitiveTextDetector::matches(before + u"jane@example.com"_s);
        ASSERT_EQ(matches.size(), 1u) << before.toStdString();
        EXPECT_EQ(matches[0].range, (TextRange{before.size(), 16}));
    }
}

TEST(TextPatterns, ReportTheMatchesOfAnEarlierRuleFirst) {
    EXPECT_EQ(found(u"ring 12345678, cpr 010190-1234, a@b.dk"_s),
              (std::vector<std::string>{"email: a@b.dk", "identity: 010190-1234", "phone: 12345678",
                                        "phone: 010190-1234"}));
}

TEST(TextPatterns, RecognizeLinesWithALabel) {
    for (const QString& line : {u"Navn: Åse"_s, u"FULL NAME : x"_s, u"account # 12"_s, u"Your e-mail:"_s,
                                u"Fødselsdato:1"_s, u"FØDSELSDATO: 1"_s, u"api key#"_s, u"(Gade) gade: x"_s})
        EXPECT_TRUE(TextPatterns::labeledLine().hasMatch(line)) << line.toStdString();
    for (const QString& line :
         {u"username: x"_s, u"name is Åse"_s, u"names: x"_s, u"emailed: x"_s, u"token"_s})
        EXPECT_FALSE(TextPatterns::labeledLine().hasMatch(line)) << line.toStdString();
}

TEST(TextPatterns, CheckCardNumbersByTheirLastDigit) {
    for (const QString& number : {u"4111111111111111"_s, u"5500 0000 0000 0004"_s, u"3400-0000-0000-009"_s,
                                  u"٤١١١١١١١١١١١١١١١"_s, u"0000000000000"_s})
        EXPECT_TRUE(TextPatterns::passesLuhn(number)) << number.toStdString();
    for (const QString& number :
         {u"4111111111111112"_s, u"1111111111111111"_s, u"000000000000"_s, u"00000000000000000000"_s, u""_s})
        EXPECT_FALSE(TextPatterns::passesLuhn(number)) << number.toStdString();
}

TEST(TextPatterns, EndInReasonableTimeOnAnyLine) {
    // Lines on which a backtracking engine without a limit would work for minutes.
    for (const QString& unit : {u"a.b-"_s, u"1 "_s, u"A1 "_s, u"x@"_s, u"(1)-"_s}) {
        const auto hits = found(u"jane@example.com, "_s + unit.repeated(20'000));
        EXPECT_THAT(hits, testing::Contains("email: jane@example.com")) << unit.toStdString();
    }
}

} // namespace
} // namespace Veilshot
