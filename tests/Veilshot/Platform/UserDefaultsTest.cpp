#include "Veilshot/Platform/UserDefaults.h"

#include "tests/Veilshot/FileContents.h"

#include <QTemporaryDir>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

TEST(UserDefaults, AreThereForTheNextStartAtOnceEachOfItsType) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"new/settings.conf"_s);
    UserDefaults defaults(path);
    EXPECT_EQ(defaults.boolean(u"on"_s), std::nullopt);
    EXPECT_FALSE(QFile::exists(path));
    const QString awkward = u"% , ; = \"Zoë\" \\ ü\n[x]"_s;
    defaults.setBoolean(u"on"_s, true);
    defaults.setBoolean(u"off"_s, false);
    defaults.setText(u"text"_s, awkward);

    // In another place, because objects for the same file share what they have in memory.
    const QString nextPath = folder.filePath(u"next.conf"_s);
    FileContents::write(nextPath, FileContents::read(path) + "number=1\nempty=\nlist=true, true\n");
    const UserDefaults next(nextPath);
    EXPECT_EQ(next.boolean(u"on"_s), true);
    EXPECT_EQ(next.boolean(u"off"_s), false);
    EXPECT_EQ(next.text(u"text"_s), awkward);
    for (const QString& key : {u"number"_s, u"empty"_s, u"list"_s, u"text"_s})
        EXPECT_EQ(next.boolean(key), std::nullopt) << key.toStdString();
    EXPECT_EQ(next.text(u"list"_s), std::nullopt);
}

} // namespace
} // namespace Veilshot
