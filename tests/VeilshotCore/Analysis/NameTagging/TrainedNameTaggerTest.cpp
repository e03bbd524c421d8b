#include "VeilshotCore/Analysis/NameTagging/TrainedNameTagger.h"

#include <QFile>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

/// Lines with their names in brackets.
void expectNames(const std::vector<QString>& rows) {
    for (const QString& row : rows) {
        QString line = row;
        line.remove(u'[').remove(u']');
        QString marked = line;
        const std::vector<TextRange> names = TrainedNameTagger().personalNames(line);
        for (auto name = names.rbegin(); name != names.rend(); ++name)
            marked.insert(name->end(), u']').insert(name->location, u'[');
        EXPECT_EQ(marked.toStdString(), row.toStdString());
    }
}

TEST(NamesInALine, AreFoundInBareCells) {
    expectNames({u"[Helena Whitfield]"_s, u"Quick Settings"_s, u"[Birgitte]"_s, u"Gul"_s, u"Rød"_s,
                 u"[HELENA WHITFIELD]"_s, u"SAVE CHANGES"_s, u"[Whitfield, Helena R.]"_s, u"Portland, OR"_s,
                 u"[Anne-Mette af Rosen]"_s, u"10.20.0.7 - Florence"_s, u"Lake Victoria"_s,
                 u"[Ludwig van der Berg]"_s});
    expectNames({u"[Robert F. Hughes Jr.]"_s, u"18 [Nwachi Obuzor]"_s, u"[Obuzor, Nwachi]"_s,
                 u"[Olive Trebarwith]"_s, u"[Jaskwinder Trebarwal]"_s, u"[Dele Nwachibu]"_s,
                 u"[Dal Forno, Ilaria]"_s, u"[BRANDVOLD, Tyra]"_s, u"Burkina Faso"_s, u"[Aoife]"_s,
                 u"[Ketil]"_s, u"Saldo"_s});
}

TEST(NamesInALine, AreToldFromOrganisations) {
    expectNames({u"Jensen & Søn A/S"_s, u"Morgan Stanley"_s, u"Marks & Spencer"_s, u"Mads Holm A/S"_s,
                 u"[Emma] & [Oliver]"_s, u"Howard University"_s, u"Jackson Street 12"_s,
                 u"Contact [Oliver Brooks], Contoso Inc."_s});
}

TEST(NamesInALine, AreToldByTheirSurroundings) {
    expectNames({u"Hi [Rose], see you in May"_s, u"He will grant you a wish"_s,
                 u"Meeting with [Will] moved to Friday"_s, u"Mark all as read"_s, u"Kære [Xantippe],"_s,
                 u"Welcome Back"_s, u"Med venlig hilsen [Bo]"_s, u"Log ind for at fortsætte"_s,
                 u"From: New York To: Boston"_s, u"Assigned to [Priya Sharma] on Monday"_s,
                 u"Dr. [Stone] and Mrs [Field]"_s});
    expectNames({u"9:30 Standup – [Liam], [Wei], [Aisha]"_s, u"June July August"_s, u"[Omar]’s iPhone"_s,
                 u"[Mettes] skærm"_s, u"Set af [Freja] og [Rasmus]"_s, u"tak [mette] det var dejligt"_s,
                 u"@[Freja Lund] kan du se på den?"_s, u"Author: [Liam Walsh] <liam.walsh@example.com>"_s,
                 u"All good. Hand me [Ezra]'s number, please"_s, u"Sorry. [Faith]'s bike is in the yard"_s,
                 u"I'm not able to open it"_s});
}

TEST(NamesInALine, AreFoundInSectionsAndByTheirForm) {
    expectNames({u"07700 900412 - [Zsofka Brindlemar]"_s, u"[Obinze Fasheun]@obinze_f - 6h"_s,
                 u"obf:x:1004:1004:[Obinze Fasheun],,,:/home/obf"_s,
                 u"[Malene Ross] - Rådgiver - Havnens Boligkontor"_s, u"satiren “Obinze Fasheun” fra i går"_s,
                 u"[Obinze N.] iPad"_s, u"[Ravi P.-C.]"_s, u"Vitamin D. Take one"_s,
                 u"[Fasheun, B.] and [Obuzor, K.] (2020). Snow."_s,
                 u"09:10 [P. Fasheun]: på stuegang i dag"_s, u"Your pass will read [FASHEUN/OBINZE] MS"_s,
                 u"[Kirstine] & [Palle Storgaard]"_s, u"Attendees: [Obinze Fasheun], [Zsofka]"_s,
                 u"[Anna Storgaard], Zsofka"_s, u"By [Prudence Fasheun], 6 min read"_s,
                 u"From: [Tjorven Uhlenbrock]"_s});
    expectNames({u"[Okonjo-Bello], [Lindqvist], [Haddad]"_s, u"Settings, Account, [Anna]"_s,
                 u"Sekretær: [Hrefna] - Version 6.2.0"_s, u"sælgers svoger, [Ketil], mod kvittering"_s,
                 u"for position 60: [Gwil] on 07700 900 461"_s, u"Bus on 07700 900 461"_s,
                 u"[Ketil]: bring a chair"_s, u"[Gebremedhin Tesfaye] set priority to Major"_s,
                 u"Then [Will], who lives here, called"_s, u"[Obinze], please clean both"_s,
                 u"However, you can skip it"_s, u"Welcome back, [Obinze]"_s, u"[Marks] kontor er lukket"_s,
                 u"This office is closed"_s, u"Served by [Obinze]"_s,
                 u"Contact [Hyun-woo Baek] in Network"_s});
    expectNames({u"[Hollow, Jasper]"_s, u"[de Wilde, Famke]"_s, u"Hancock, Maine"_s, u"[Tor] [Ivar Bakken]"_s,
                 u"where surname = '[Aust]' or full_name <> \"[Ai Bo]\""_s, u"hostname = 'Aust'"_s,
                 u"Any time, [Obinze]."_s, u"Any questions, Norway."_s, u"her daughter [Clemency] by phone"_s,
                 u"Ask [Hyacinth] or the desk"_s, u"ask for [Bell] at the desk"_s,
                 u"Tell Customers about it"_s, u"Lunch [Prudence] & [Olu]"_s,
                 u"[Grace] from the front desk wrote: yes"_s, u"Mark from scratch what is wrong"_s});
}

TEST(NamesInALine, AreToldFromOtherThings) {
    expectNames({u"Last login: Tue Jun 10 17:48:03 2025"_s, u"Charlotte Street closed until Friday"_s,
                 u"Florence Nightingale School"_s, u"Wool blanket “Florence”"_s,
                 u"Moss green, 130 x 180 cm"_s, u"Ventetider Sygeplejen"_s});
}

TEST(NamesInALine, AreFoundWithMisreadLetters) {
    expectNames({u"[Emi1y Carter]"_s, u"[0livia Bennett]"_s, u"[Soren Kjaer]"_s, u"[M1chael Thompson]"_s,
                 u"Galaxy S24 Ultra"_s, u"20 [IngridSolheim]"_s,
                 u"[IngridSolheim] og [JonasVik] skrev 3 gange til [Yrsa]"_s, u"@IngridSolheim hej"_s,
                 u"JavaScript"_s, u"new IngridMapper()"_s, u"SHA-256 9f86d081884c7d65"_s});
}

TEST(NamesInALine, AreFoundThoughInNoList) {
    expectNames({u"[K. Papadimitriou]"_s, u"Ship to: [Barnaby Quill], 14 Harbour Row"_s,
                 u"[Lucinda Thorsgood] → [Mateo Ferreira]"_s, u"Shared with [Lysander] and 3 others"_s,
                 u"[Konrads] mor ringer kl. 15"_s, u"[Ella Thrane]  ella@thrane.dk  Aktiv"_s,
                 u"Afsender: [Tjodhild Kvorning]"_s, u"Download Invoice"_s, u"Vælg alle"_s});
}

TEST(NamesInALine, AreFoundWhereTheyAreUnmistakable) {
    expectNames(
        {u"Mr [Church] about the yard"_s, u"Dr. [June Castle]"_s, u"the MS Word file and the HR Manager"_s,
         u"an estate of one [Zoltan Crumb] in Hancock, NY"_s, u"he climbed up with [Pugh] on Sunday"_s,
         u"Cc [Bill Church], [Miroslava Hruba], info@hall.example"_s,
         u"10 [Dragsted],[Pelle],pelle@dragstedbyg.example"_s,
         u"elef.papadim@naru.example for [Eleftheria Papadimitriou]"_s,
         u"on Thursday. [C. Batliwala] replaced the cable"_s, u"[Zbigniew topatka]"_s,
         u"[lestyn Prydderch]"_s, u"[Hope Pugh] was late"_s, u"Father [Bede Molloy] asked"_s,
         u"Is it dry? [Lettice] would like to know"_s, u"a card to Old [Joe]"_s, u"River Trent would rise"_s,
         u"9 [Park],[Ha-eun],haeun.park@naru.example"_s, u"Support,Team,support.team@naru.example"_s,
         u"Fee,fees@naru.example"_s});
}

TEST(NamesInALine, AreFoundWhereTheirWordsAreRepeated) {
    expectNames({u"April Fasheun\t\uE000\t21 April 2024"_s, u"Obinze Fasheun\t\uE000\tday [Fasheun]. When"_s,
                 u"obf Obinze\t\uE000\tday Fasheun. When"_s,
                 u"Obinze Fasheun\t\uE000\tFasheun Ltd\t\uE000\tAsk [Fasheun]"_s,
                 u"Fasheun Masonry Ltd\t\uE000\tday Fasheun. When"_s,
                 u"Obinze Fasheun\t\uE000\tFasheun Masonry Ltd"_s,
                 u"William Church\t\uE000\tthe Church is open"_s, u"William Church\t\uE000\t[Church]"_s,
                 u"Lark Auclair\t\uE000\t[Lark] authored 4"_s, u"Olu Fasheun\t\uE000\t[Olu]) 20f3"_s,
                 u"Hi Tam, bring photo\t\uE000\t[Tam]"_s, u"Hi all, bring photo\t\uE000\tPhoto"_s,
                 u"William Church\t\uE000\task for [Church] or\t\uE000\tRight. [Church], can you"_s,
                 u"William Church\t\uE000\tstamped “[W. CHURCH] 1938”"_s});
}

TEST(TrainedNameTaggerTest, FindsWhatTheListsKnowWithoutAModelThatCanBeRead) {
    QFile file(u":/Veilshot/Analysis/NameModel.bin"_s);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray model = file.readAll();
    ASSERT_TRUE(NameModel::fromBytes(model));
    EXPECT_EQ(NameModel::fromBytes(model)->toBytes(), model);
    QByteArray changed = model;
    changed[model.size() / 2] = static_cast<char>(changed[model.size() / 2] ^ 1);
    for (const QByteArray& damaged :
         {QByteArray(), QByteArray("VNM2"), model.first(model.size() / 2), changed}) {
        EXPECT_FALSE(NameModel::fromBytes(damaged));
        EXPECT_THAT(TrainedNameTagger(damaged).personalNames(u"From: Emily Carter"_s),
                    testing::ElementsAre(TextRange{6, 12}));
        EXPECT_THAT(TrainedNameTagger(damaged).personalNames(u"18 Nwachi Obuzor"_s),
                    testing::ElementsAre(TextRange{3, 13}));
    }
}

TEST(TrainedNameTaggerTest, CountsOffsetsInUtf16WhateverStandsBeforeTheName) {
    for (const QString& prefix :
         {u""_s, u"👍🏽 "_s, u"“æøå” – "_s, u"👩‍👩‍👧 Påmindelse: "_s, u"𝔄 e\u0301 · "_s}) {
        const QString line = prefix + u"Søren Kjær, 42"_s;
        EXPECT_THAT(TrainedNameTagger().personalNames(line),
                    testing::ElementsAre(TextRange{prefix.size(), 10}))
            << line.toStdString();
    }
}

TEST(TrainedNameTaggerTest, SurvivesLinesThatAreNoText) {
    for (const QString& line :
         {u""_s, u"  \t "_s, u"’s"_s, u"@"_s, u"Anna,"_s, u", Anna"_s, u"\xD83D Anna \xDC4D"_s,
          QString(5000, u'.'), QString(5000, u'A'), u"Anna "_s.repeated(2000)}) {
        qsizetype end = 0;
        for (const TextRange& range : TrainedNameTagger().personalNames(line)) {
            EXPECT_GE(range.location, end);
            EXPECT_GT(range.length, 0);
            end = range.end();
        }
        EXPECT_LE(end, line.size());
    }
}

} // namespace
} // namespace Veilshot
