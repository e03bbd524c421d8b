#include "Veilshot/Updates/ReleaseVersion.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

TEST(ReleaseVersion, FollowsNumbersAndPutsSuffixesBeforeTheRelease) {
    const QStringList inOrder{u"0.9"_s,         u"1.0-alpha"_s, u"1.0-beta"_s, u"1.0-beta.2"_s,
                              u"1.0-beta.10"_s, u"1.0-RC1"_s,   u"1.0"_s,      u"1.0.1-dev"_s,
                              u"1.0.1"_s,       u"1.9"_s,       u"1.10"_s,     u"1.10.0.1"_s};
    for (qsizetype i = 0; i < inOrder.size(); ++i) {
        for (qsizetype j = 0; j < inOrder.size(); ++j)
            EXPECT_EQ(*ReleaseVersion::parse(inOrder[i]) <=> *ReleaseVersion::parse(inOrder[j]), i <=> j)
                << inOrder[i].toStdString() << " and " << inOrder[j].toStdString();
    }
    EXPECT_EQ(ReleaseVersion::parse(u"1.0"_s), ReleaseVersion::parse(u"1.0.0"_s));
}

TEST(ReleaseVersion, RefusesWhatIsNone) {
    for (const QString& text :
         {u""_s, u"v1.0"_s, u"1."_s, u".1"_s, u"1.0 "_s, u"1.0\n"_s, u"1.0-"_s, u"1.0-ø"_s, u"1.2.3.4.5"_s,
          u"4294967297"_s, u"1.0-beta4294967297"_s, u"١.٠"_s})
        EXPECT_FALSE(ReleaseVersion::parse(text)) << text.toStdString();
}

} // namespace
} // namespace Veilshot
