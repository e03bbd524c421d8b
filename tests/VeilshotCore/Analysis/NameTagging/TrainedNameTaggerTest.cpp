#include "VeilshotCore/Analysis/NameTagging/TrainedNameTagger.h"

#include <QFile>
#include <QStringList>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

QStringList namesIn(const QString& line) {
    QStringList names;
    for (const TextRange& range : TrainedNameTagger().personalNames(line))
        names.append(line.mid(range.location, range.length));
    return names;
}

/// A line and the names in it, separated by bars.
struct Row {
    const char16_t* line;
    const char16_t* names;
};

class NamesInALine : public testing::TestWithParam<Row> {};

TEST_P(NamesInALine, AreFoundAmongTheirDecoys) {
    const auto [line, names] = GetParam();
    const QStringList expected = QString::fromUtf16(names).split(u'|', Qt::SkipEmptyParts);
    EXPECT_EQ(namesIn(QString::fromUtf16(line)).join(u'|').toStdString(), expected.join(u'|').toStdString());
}

INSTANTIATE_TEST_SUITE_P(BareCells, NamesInALine,
                         testing::Values(Row{u"Helena Whitfield", u"Helena Whitfield"},         //
                                         Row{u"Quick Settings", u""},                           //
                                         Row{u"Birgitte", u"Birgitte"},                         //
                                         Row{u"Gul", u""}, Row{u"Rød", u""},                    //
                                         Row{u"HELENA WHITFIELD", u"HELENA WHITFIELD"},         //
                                         Row{u"SAVE CHANGES", u""},                             //
                                         Row{u"Whitfield, Helena R.", u"Whitfield, Helena R."}, //
                                         Row{u"Portland, OR", u""},                             //
                                         Row{u"Anne-Mette af Rosen", u"Anne-Mette af Rosen"},   //
                                         Row{u"10.20.0.7 - Florence", u""},                     //
                                         Row{u"Lake Victoria", u""},                            //
                                         Row{u"Ludwig van der Berg", u"Ludwig van der Berg"},   //
                                         Row{u"Robert F. Hughes Jr.", u"Robert F. Hughes Jr."}, //
                                         Row{u"18 Nwachi Obuzor", u"Nwachi Obuzor"},            //
                                         Row{u"Obuzor, Nwachi", u"Obuzor, Nwachi"},             //
                                         Row{u"Olive Trebarwith", u"Olive Trebarwith"},         //
                                         Row{u"Jaskwinder Trebarwal", u"Jaskwinder Trebarwal"}, //
                                         Row{u"Dele Nwachibu", u"Dele Nwachibu"},               //
                                         Row{u"Dal Forno, Ilaria", u"Dal Forno, Ilaria"},       //
                                         Row{u"BRANDVOLD, Tyra", u"BRANDVOLD, Tyra"},           //
                                         Row{u"Burkina Faso", u""},                             //
                                         Row{u"Aoife", u"Aoife"}, Row{u"Ketil", u"Ketil"},      //
                                         Row{u"Saldo", u""}));

INSTANTIATE_TEST_SUITE_P(Organisations, NamesInALine,
                         testing::Values(Row{u"Jensen & Søn A/S", u""},         //
                                         Row{u"Morgan Stanley", u""},           //
                                         Row{u"Marks & Spencer", u""},          //
                                         Row{u"Mads Holm A/S", u""},            //
                                         Row{u"Emma & Oliver", u"Emma|Oliver"}, //
                                         Row{u"Howard University", u""},        //
                                         Row{u"Jackson Street 12", u""},        //
                                         Row{u"Contact Oliver Brooks, Contoso Inc.", u"Oliver Brooks"}));

INSTANTIATE_TEST_SUITE_P(Surroundings, NamesInALine,
                         testing::Values(Row{u"Hi Rose, see you in May", u"Rose"},                    //
                                         Row{u"He will grant you a wish", u""},                       //
                                         Row{u"Meeting with Will moved to Friday", u"Will"},          //
                                         Row{u"Mark all as read", u""},                               //
                                         Row{u"Kære Xantippe,", u"Xantippe"},                         //
                                         Row{u"Welcome Back", u""},                                   //
                                         Row{u"Med venlig hilsen Bo", u"Bo"},                         //
                                         Row{u"Log ind for at fortsætte", u""},                       //
                                         Row{u"From: New York To: Boston", u""},                      //
                                         Row{u"Assigned to Priya Sharma on Monday", u"Priya Sharma"}, //
                                         Row{u"Dr. Stone and Mrs Field", u"Stone|Field"},             //
                                         Row{u"9:30 Standup – Liam, Wei, Aisha", u"Liam|Wei|Aisha"},  //
                                         Row{u"June July August", u""},                               //
                                         Row{u"Omar’s iPhone", u"Omar"},                              //
                                         Row{u"Mettes skærm", u"Mettes"},                             //
                                         Row{u"Set af Freja og Rasmus", u"Freja|Rasmus"},             //
                                         Row{u"tak mette det var dejligt", u"mette"},                 //
                                         Row{u"@Freja Lund kan du se på den?", u"Freja Lund"},        //
                                         Row{u"Author: Liam Walsh <liam.walsh@example.com>",
                                             u"Liam Walsh"},                                       //
                                         Row{u"All good. Hand me Ezra's number, please", u"Ezra"}, //
                                         Row{u"Sorry. Faith's bike is in the yard", u"Faith"},     //
                                         Row{u"I'm not able to open it", u""}));

INSTANTIATE_TEST_SUITE_P(
    SectionsAndForms, NamesInALine,
    testing::Values(Row{u"07700 900412 - Zsofka Brindlemar", u"Zsofka Brindlemar"},              //
                    Row{u"Obinze Fasheun@obinze_f - 6h", u"Obinze Fasheun"},                     //
                    Row{u"obf:x:1004:1004:Obinze Fasheun,,,:/home/obf", u"Obinze Fasheun"},      //
                    Row{u"Malene Ross - Rådgiver - Havnens Boligkontor", u"Malene Ross"},        //
                    Row{u"satiren “Obinze Fasheun” fra i går", u""},                             //
                    Row{u"Obinze N. iPad", u"Obinze N."},                                        //
                    Row{u"Ravi P.-C.", u"Ravi P.-C."},                                           //
                    Row{u"Vitamin D. Take one", u""},                                            //
                    Row{u"Fasheun, B. and Obuzor, K. (2020). Snow.", u"Fasheun, B.|Obuzor, K."}, //
                    Row{u"09:10 P. Fasheun: på stuegang i dag", u"P. Fasheun"},                  //
                    Row{u"Your pass will read FASHEUN/OBINZE MS", u"FASHEUN/OBINZE"},            //
                    Row{u"Kirstine & Palle Storgaard", u"Kirstine|Palle Storgaard"},             //
                    Row{u"Attendees: Obinze Fasheun, Zsofka", u"Obinze Fasheun|Zsofka"},         //
                    Row{u"Anna Storgaard, Zsofka", u"Anna Storgaard"},                           //
                    Row{u"By Prudence Fasheun, 6 min read", u"Prudence Fasheun"},                //
                    Row{u"From: Tjorven Uhlenbrock", u"Tjorven Uhlenbrock"},                     //
                    Row{u"Okonjo-Bello, Lindqvist, Haddad", u"Okonjo-Bello|Lindqvist|Haddad"},   //
                    Row{u"Settings, Account, Anna", u"Anna"},                                    //
                    Row{u"Sekretær: Hrefna - Version 6.2.0", u"Hrefna"},                         //
                    Row{u"sælgers svoger, Ketil, mod kvittering", u"Ketil"},                     //
                    Row{u"for position 60: Gwil on 07700 900 461", u"Gwil"},                     //
                    Row{u"Bus on 07700 900 461", u""},                                           //
                    Row{u"Gebremedhin Tesfaye set priority to Major", u"Gebremedhin Tesfaye"},   //
                    Row{u"Then Will, who lives here, called", u"Will"},                          //
                    Row{u"Obinze, please clean both", u"Obinze"},                                //
                    Row{u"However, you can skip it", u""},                                       //
                    Row{u"Welcome back, Obinze", u"Obinze"},                                     //
                    Row{u"Marks kontor er lukket", u"Marks"},                                    //
                    Row{u"This office is closed", u""},                                          //
                    Row{u"Served by Obinze", u"Obinze"},                                         //
                    Row{u"Contact Hyun-woo Baek in Network", u"Hyun-woo Baek"}));

INSTANTIATE_TEST_SUITE_P(OtherThings, NamesInALine,
                         testing::Values(Row{u"Last login: Tue Jun 10 17:48:03 2025", u""}, //
                                         Row{u"Charlotte Street closed until Friday", u""}, //
                                         Row{u"Florence Nightingale School", u""},          //
                                         Row{u"Wool blanket “Florence”", u""},              //
                                         Row{u"Moss green, 130 x 180 cm", u""},             //
                                         Row{u"Ventetider Sygeplejen", u""}));

INSTANTIATE_TEST_SUITE_P(MisreadLetters, NamesInALine,
                         testing::Values(Row{u"Emi1y Carter", u"Emi1y Carter"},         //
                                         Row{u"0livia Bennett", u"0livia Bennett"},     //
                                         Row{u"Soren Kjaer", u"Soren Kjaer"},           //
                                         Row{u"M1chael Thompson", u"M1chael Thompson"}, //
                                         Row{u"Galaxy S24 Ultra", u""},                 //
                                         Row{u"20 IngridSolheim", u"IngridSolheim"},    //
                                         Row{u"IngridSolheim og JonasVik skrev 3 gange til Yrsa",
                                             u"IngridSolheim|JonasVik|Yrsa"}, //
                                         Row{u"@IngridSolheim hej", u""},     //
                                         Row{u"JavaScript", u""},             //
                                         Row{u"new IngridMapper()", u""},     //
                                         Row{u"SHA-256 9f86d081884c7d65", u""}));

INSTANTIATE_TEST_SUITE_P(NamesInNoList, NamesInALine,
                         testing::Values(Row{u"K. Papadimitriou", u"K. Papadimitriou"},                    //
                                         Row{u"Ship to: Barnaby Quill, 14 Harbour Row", u"Barnaby Quill"}, //
                                         Row{u"Lucinda Thorsgood → Mateo Ferreira",
                                             u"Lucinda Thorsgood|Mateo Ferreira"},                   //
                                         Row{u"Shared with Lysander and 3 others", u"Lysander"},     //
                                         Row{u"Konrads mor ringer kl. 15", u"Konrads"},              //
                                         Row{u"Ella Thrane  ella@thrane.dk  Aktiv", u"Ella Thrane"}, //
                                         Row{u"Afsender: Tjodhild Kvorning", u"Tjodhild Kvorning"},  //
                                         Row{u"Download Invoice", u""},                              //
                                         Row{u"Vælg alle", u""}));

INSTANTIATE_TEST_SUITE_P(
    Unmistakable, NamesInALine,
    testing::Values(
        Row{u"Mr Church about the yard", u"Church"},                                                 //
        Row{u"Dr. June Castle", u"June Castle"},                                                     //
        Row{u"the MS Word file and the HR Manager", u""},                                            //
        Row{u"an estate of one Zoltan Crumb in Hancock, NY", u"Zoltan Crumb"},                       //
        Row{u"he climbed up with Pugh on Sunday", u"Pugh"},                                          //
        Row{u"Cc Bill Church, Miroslava Hruba, info@hall.example", u"Bill Church|Miroslava Hruba"},  //
        Row{u"10 Dragsted,Pelle,pelle@dragstedbyg.example", u"Dragsted|Pelle"},                      //
        Row{u"elef.papadim@naru.example for Eleftheria Papadimitriou", u"Eleftheria Papadimitriou"}, //
        Row{u"on Thursday. C. Batliwala replaced the cable", u"C. Batliwala"},                       //
        Row{u"Zbigniew topatka", u"Zbigniew topatka"},                                               //
        Row{u"9 Park,Ha-eun,haeun.park@naru.example", u"Park|Ha-eun"},                               //
        Row{u"Support,Team,support.team@naru.example", u""},                                         //
        Row{u"Fee,fees@naru.example", u""}));

INSTANTIATE_TEST_SUITE_P(WordsOfANameElsewhere, NamesInALine,
                         testing::Values(Row{u"April Fasheun\t≡\t21 April 2024", u""},             //
                                         Row{u"Obinze Fasheun\t≡\tday Fasheun. When", u"Fasheun"}, //
                                         Row{u"obf Obinze\t≡\tday Fasheun. When", u""},            //
                                         Row{u"Fasheun Masonry Ltd\t≡\tday Fasheun. When", u""},   //
                                         Row{u"Obinze Fasheun\t≡\tFasheun Masonry Ltd", u""},      //
                                         Row{u"William Church\t≡\tthe Church is open", u""},       //
                                         Row{u"William Church\t≡\tChurch", u"Church"}));

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
