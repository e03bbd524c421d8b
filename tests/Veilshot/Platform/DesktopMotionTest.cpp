#include "Veilshot/Platform/DesktopMotion.h"

#include "tests/Veilshot/FileContents.h"
#include "tests/Veilshot/Platform/PortalStandIn.h"
#include "tests/Veilshot/StandIns.h"

#include <QDir>
#include <QTemporaryDir>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

const QString space = u"org.gnome.desktop.interface"_s;
const QString key = u"enable-animations"_s;

struct DesktopMotionTest : testing::Test {
    PrivateBus bus;
    const QTemporaryDir configuration;
    int folderCount = 0;
    const QByteArray formerConfiguration = qgetenv("XDG_CONFIG_HOME");

    void SetUp() override {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(configuration.path()));
        qunsetenv("VEILSHOT_REDUCED_MOTION");
    }
    void TearDown() override {
        if (formerConfiguration.isNull())
            qunsetenv("XDG_CONFIG_HOME");
        else
            qputenv("XDG_CONFIG_HOME", formerConfiguration);
        qunsetenv("VEILSHOT_REDUCED_MOTION");
    }
    /// In a folder of its own, because Qt may take a file of the same size and second for the one it read
    /// last.
    void writeGtkSettings(const QByteArray& line) {
        const QString folder = configuration.filePath(QString::number(++folderCount));
        QDir().mkpath(folder + u"/gtk-3.0"_s);
        FileContents::write(folder + u"/gtk-3.0/settings.ini"_s, "[Settings]\n" + line + '\n');
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder));
    }
    bool isReduced() { return DesktopMotion(bus.connection(u"asking"_s)).isReduced(); }
};

TEST_F(DesktopMotionTest, FollowsThePortal) {
    PortalStandIn portal(bus, {{key, false}});
    const auto connection = bus.connection(u"veilshot"_s);
    const DesktopMotion motion(connection);
    const PortalSetting last(connection, u"other"_s, u"last"_s);
    EXPECT_TRUE(motion.isReduced());
    portal.announce(space, u"cursor-blink"_s, true);
    portal.announce(u"other"_s, u"last"_s, 1);
    EXPECT_TRUE(StandIns::waitUntil([&] { return last.value().isValid(); }));
    EXPECT_TRUE(motion.isReduced()) << "another setting is not this one";
    portal.announce(space, key, true);
    EXPECT_TRUE(StandIns::waitUntil([&] { return !motion.isReduced(); }));

    qputenv("VEILSHOT_REDUCED_MOTION", "0");
    EXPECT_FALSE(isReduced()) << "whatever the portal said at first";
}

TEST_F(DesktopMotionTest, ReadsGtksSettingWhereThePortalDoesNotKnow) {
    EXPECT_FALSE(isReduced()) << "motion unless someone says otherwise";
    PortalStandIn portal(bus, {});
    for (const auto& [line, expected] : {std::pair{"gtk-enable-animations=false", true},
                                         {"gtk-enable-animations=1", false},
                                         {"gtk-theme-name=Adwaita", false}}) {
        writeGtkSettings(line);
        EXPECT_EQ(isReduced(), expected) << line;
    }
    qputenv("VEILSHOT_REDUCED_MOTION", "1");
    EXPECT_TRUE(isReduced());
}

} // namespace
} // namespace Veilshot
