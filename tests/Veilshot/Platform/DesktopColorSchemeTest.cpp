#include "Veilshot/Platform/DesktopColorScheme.h"

#include "tests/Veilshot/Platform/PortalStandIn.h"
#include "tests/Veilshot/StandIns.h"

#include <QGuiApplication>
#include <QPalette>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

TEST(DesktopColorScheme, FollowsThePortalAndOtherwiseThePalette) {
    PrivateBus bus;
    PortalStandIn portal(bus, {{u"color-scheme"_s, 1u}});
    const auto announce = [&](uint value) {
        portal.announce(u"org.freedesktop.appearance"_s, u"color-scheme"_s, value);
    };

    const QPalette before = QGuiApplication::palette();
    DesktopColorScheme scheme(bus.connection(u"veilshot"_s));
    EXPECT_TRUE(scheme.isDark());
    announce(2);
    EXPECT_TRUE(StandIns::waitUntil([&] { return !scheme.isDark(); }));
    QGuiApplication::setPalette(QPalette(Qt::black));
    EXPECT_FALSE(scheme.isDark()) << "the portal has the first word";
    announce(0);
    EXPECT_TRUE(StandIns::waitUntil([&] { return scheme.isDark(); }));
    QGuiApplication::setPalette(QPalette(Qt::white));
    EXPECT_TRUE(StandIns::waitUntil([&] { return !scheme.isDark(); }));
    QGuiApplication::setPalette(before);
}

} // namespace
} // namespace Veilshot
