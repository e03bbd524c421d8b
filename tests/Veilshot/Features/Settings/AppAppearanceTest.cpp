#include "Veilshot/Features/Settings/AppAppearance.h"

#include "Veilshot/Platform/UserDefaults.h"

#include <QTemporaryDir>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

TEST(AppAppearance, IsKeptAndFollowsTheDesktopUnlessChosen) {
    const QTemporaryDir folder;
    UserDefaults defaults(folder.filePath(u"defaults.conf"_s));
    EXPECT_EQ(readAppAppearance(defaults), AppAppearance::system);
    for (const AppAppearance appearance : allAppAppearances) {
        writeAppAppearance(appearance, defaults);
        EXPECT_EQ(readAppAppearance(defaults), appearance);
    }
    EXPECT_EQ(defaults.text(u"appAppearance"_s), u"dark"_s);
    defaults.setText(u"appAppearance"_s, u"Dark"_s);
    EXPECT_EQ(readAppAppearance(defaults), AppAppearance::system) << "not a value that is written";

    EXPECT_TRUE(isDark(AppAppearance::system, true) && isDark(AppAppearance::dark, false));
    EXPECT_FALSE(isDark(AppAppearance::system, false) || isDark(AppAppearance::light, true));
}

} // namespace
} // namespace Veilshot
