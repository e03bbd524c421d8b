#include "Veilshot/Platform/UserDefaults.h"

#include <QFile>
#include <QTemporaryDir>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

TEST(UserDefaults, AreThereForTheNextStartAtOnce) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"new/settings.conf"_s);
    UserDefaults defaults(path);
    EXPECT_EQ(defaults.boolean(u"on"_s), std::nullopt);
    EXPECT_FALSE(QFile::exists(path));
    const QString awkward = u"% , ; = \"Zoë\" \\ ü\n[x]"_s;
    defaults.setBoolean(u"on"_s, true);
    defaults.setBoolean(u"off"_s, false);
    defaults.setText(u"text"_s, awkward);
    const UserDefaults next(path); // while the first one is still there
    EXPECT_EQ(next.boolean(u"on"_s), true);
    EXPECT_EQ(next.boolean(u"off"_s), false);
    EXPECT_EQ(next.text(u"text"_s), awkward);
}

TEST(UserDefaults, TakeAValueOfAnotherTypeForNone) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"settings.conf"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[General]\nnumber=1\nempty=\nlist=true, true\nbytes=@ByteArray(true)\nyes=true\n");
    file.close();
    const UserDefaults defaults(path);
    for (const QString& key : {u"number"_s, u"empty"_s, u"list"_s, u"bytes"_s})
        EXPECT_EQ(defaults.boolean(key), std::nullopt) << key.toStdString();
    EXPECT_EQ(defaults.boolean(u"yes"_s), true);
    EXPECT_EQ(defaults.text(u"list"_s), std::nullopt);
}

} // namespace
} // namespace Veilshot
