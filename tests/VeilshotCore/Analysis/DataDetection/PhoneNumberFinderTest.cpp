#include "VeilshotCore/Analysis/DataDetection/PhoneNumberFinder.h"
#include "tests/VeilshotCore/Analysis/DataDetection/FoundTexts.h"

namespace Veilshot {
namespace {

TEST(PhoneNumberFinder, FindsNumbersAsPeopleWriteThem) {
    expectFound<PhoneNumberFinder>({
        {"Cell: 503.555.0176", {"503.555.0176"}},
        {"Voicemail from (646) 555-0102, 0:32", {"(646) 555-0102"}},
        {"Office +1-206-555-0188 ext. 12", {"+1-206-555-0188 ext. 12"}},
        {"(0161) 496 0345", {"(0161) 496 0345"}},
        {"WhatsApp +34 612 34 56 78", {"+34 612 34 56 78"}},
        {"0045 20 12 34 56", {"0045 20 12 34 56"}},
        {"Vagttelefon 3331 4455", {"3331 4455"}},
        {"26-71-80-93", {"26-71-80-93"}},
        {"21 43 65 87 / 86 75 30 90", {"21 43 65 87", "86 75 30 90"}},
        {"Jane Doe 415-555-0132 2024-03-14 Active", {"415-555-0132"}},
        {"Telefon 86 12 34 56 kl. 9-15", {"86 12 34 56"}},
        {"Order line, call 2125550147", {"2125550147"}},
    });
}

TEST(PhoneNumberFinder, LeavesOtherNumbersAlone) {
    expectNothingFound<PhoneNumberFinder>({"2019–2024",
                                           "(2024-03-14)",
                                           "09:41   05-06-2025",
                                           "14.03.2024",
                                           "CVR 24256790",
                                           "Konto 0400 1234567890",
                                           "Ordrenr. 10293847",
                                           "Order #1029384756",
                                           "Tracking 1Z999AA10123456784",
                                           "10 20 30 40 50",
                                           "55 10 22",
                                           "1.299.000,00 kr.",
                                           "33124567 kr.",
                                           "$2125550147",
                                           "v10.15.7",
                                           "192.168.1.254",
                                           "3.14159265",
                                           "0x7fff5fbff8a0",
                                           "Score 21-17, 18-21, 21-19",
                                           "Build 20240314.1"});
}

// Long lines are read in overlapping pieces.
TEST(PhoneNumberFinder, FindsEveryNumberOfALongLineOnceAndWhole) {
    std::string line = "Call list: ";
    Texts expected;
    for (int number = 0; number < 60; ++number) {
        expected.push_back("(415) 555-01" + std::to_string(10 + number));
        line += expected.back() + ", ";
    }
    EXPECT_EQ(foundIn<PhoneNumberFinder>(line.c_str()), expected);
}

} // namespace
} // namespace Veilshot
