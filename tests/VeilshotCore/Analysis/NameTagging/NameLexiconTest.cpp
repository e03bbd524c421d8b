#include "VeilshotCore/Analysis/NameTagging/NameLexicon.h"
#include "VeilshotCore/Analysis/NameTagging/FrontCoding.h"

#include <QFile>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

TEST(NameLexiconTest, BuiltInListsLoseNoLineWhenRead) {
    QFile file(u":/Veilshot/Analysis/NameLexicon.txt"_s);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray names = file.readAll();
    EXPECT_GT(names.count('\n'), 160000);
    EXPECT_EQ(NameLexicon::shared().size(), names.count('\n'));
}

TEST(NameLexiconTest, BuiltInListsKnowNamesFromWordsAndPlaces) {
    const NameLexicon& lexicon = NameLexicon::shared();
    const struct {
        const char* key;
        WordTraits traits;
    } rows[] = {
        {"emily", WordTrait::strongFirstName},
        {"soren", WordTrait::strongFirstName},
        {"aase", WordTrait::strongFirstName},
        {"ase", WordTrait::strongFirstName},
        {"thompson", WordTrait::strongLastName},
        {"norgaard", WordTrait::strongLastName},
        {"settings", WordTrait::frequentWord},
        {"grace", WordTrait::strongFirstName | WordTrait::frequentWord},
        {"skov", WordTrait::strongLastName | WordTrait::rareDanishWord},
        {"odense", WordTrait::place},
        {"fru", WordTrait::title},
        {"skriver", WordTrait::personVerb},
        {"aps", WordTrait::organisation},
        {"marts", WordTrait::calendar},
    };
    for (const auto& [key, traits] : rows)
        EXPECT_EQ(lexicon.traits(key) & traits, traits) << key;
    for (const char* key : {"emily", "thompson", "thygesen"})
        EXPECT_FALSE(lexicon.traits(key) & (WordTraits(WordTrait::frequentWord) | WordTrait::place)) << key;
    EXPECT_FALSE(lexicon.traits("xqzzy"));
    EXPECT_TRUE(lexicon.isBrand("morgan", "stanley"));
    EXPECT_FALSE(lexicon.isBrand("stanley", "morgan"));
}

TEST(NameLexiconTest, FrontCodedLinesBorrowFromTheLineBefore) {
    EXPECT_EQ(frontDecoded("0ann F\n3a\n4bel Fl\n1b xr\n"), "ann F\nanna l\nannabel Fl\nab xr\n");
    // More than there is to borrow, no count, an empty line.
    EXPECT_EQ(frontDecoded("0an F\n3a\n-x l\n\n2ders"), "an F\nanders l\n");
}

TEST(NameLexiconTest, DropsLinesOutOfOrderOrWithoutFlagsAndKeepsTheRest) {
    const NameLexicon lexicon("anna F\nbent ?\nabel F\n\ncarl Fl", "# note\n[title]\nmr\n\n[unknown]\nfoo");
    EXPECT_EQ(lexicon.size(), 2);
    EXPECT_EQ(lexicon.traits("anna"), WordTraits(WordTrait::strongFirstName));
    EXPECT_EQ(lexicon.traits("carl"), WordTrait::strongFirstName | WordTrait::weakLastName);
    EXPECT_EQ(lexicon.traits("mr"), WordTraits(WordTrait::title));
    EXPECT_FALSE(lexicon.traits("foo") | lexicon.traits("abel") | lexicon.traits(""));
}

} // namespace
} // namespace Veilshot
