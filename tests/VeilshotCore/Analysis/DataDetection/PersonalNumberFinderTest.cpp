#include "VeilshotCore/Analysis/DataDetection/PersonalNumberFinder.h"
#include "tests/VeilshotCore/Analysis/DataDetection/FoundTexts.h"

namespace Veilshot {
namespace {

TEST(PersonalNumberFinder, FindsDatesOfBirthAndNumbersBehindTheirLabels) {
    expectFound<PersonalNumberFinder>(
        {"Born [21 April 1984] in Ry", "Ørnulf, født den [3. november 2022], bor her",
         "Født\t[3. november 2022]", "born [May 4th, 1961], and Julian, born [19/02/94].",
         "[17 September 1977]", "Eva [14.02.1988] ring først", "Astrid, [3 May 2013] (12 years)",
         "Passport no.\t[D89167093]", "Passport\t[LM482917] (expires 03/2031)", "Insurance [AB 12 34 56 C]",
         "reg.nr. [9153] konto 4044204237", "Sort code [20-00-00]"});
    expectFound<PersonalNumberFinder>(
        {"Reg.\t[5364]", "Konto [7701] | 0002418836, betal til konto [7702]",
         "[120571-_8832] and [091061–7212]", "f. [12. maj 1971] / Age 54 ([May 12, 1971])",
         "[PX4081726], [20CE11957], [MI7734108K]", "[K482-117-904-226], SO4821-17904",
         "[4539 1488 0343 6460]", "[GBl4 QXTB 2020 1555 5501 94]", "[20-45-13]", "Born\t[17 . 02 . 2015]",
         "[17.02.2015]", "[08 / 06 / 1979]"});
    expectFound<PersonalNumberFinder>(
        {"Guest passport no. (optional)\t[XJW 4471 90826]", "Passport / ID no.\t[04718/22/1465]",
         "passport_no\t[CFG7X10K4]", "mod kørekort nr. [27 418 066] den", "Driver licence\t[$47719023]",
         "Member ID [XJW 4471 90826]", "Policenr.\t[70-441829-3]", "[EK482913], [123.456.789-09]",
         "Document\t[U 21048837]", "RUT [14.820.417-K]", "Born\t[19-May-1948]", "[BEO9? 3853 0800 1423]",
         "[NWBK 6016 1331 9268 19]", "[1835 2304 2620 3009 9835 5600 71]", "[0K50 0040 0440 1162 43]",
         "Fodselsdag\t[30/10 1996]", "DOB\t[17FEB1986]", "Geburtsdatum: [12. März 1988]",
         "[P<GBRSMITH<<JOHN<<<<<<<<]"});
    expectNothingFound<PersonalNumberFinder>(
        {"QV 12 34 56 C or GB29", "Konto 7701 Telefon", "20-12-25", "1472 1385 7929", "12 March 2025",
         "On 6 February 1973 they met", "Paid 14.02.2025, 1.2.1999.4", "1 / 2 / 3 / 1979, 5 - 3.1990",
         "Updated 10.11.2016 (May 12, 2011)", "INC0012345", "Reg. 2016/679, reg. 2024",
         "The passport\tof 2019", "Order ID\tAB-123456", "Passport\t12/03/2031", "License\tMIT 2024",
         "Social security\t$1,200.00", "2018 2019 2020 2021 2022 2023", "4000 5000 6000 7000"});
}

} // namespace
} // namespace Veilshot
