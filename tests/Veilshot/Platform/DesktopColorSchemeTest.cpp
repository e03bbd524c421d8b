#include "Veilshot/Platform/DesktopColorScheme.h"

#include "tests/Veilshot/Platform/PrivateBus.h"
#include "tests/Veilshot/StandIns.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QGuiApplication>
#include <QPalette>
#include <QThread>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

/// The desktop portal's settings: one of them.
class PortalSettings : public QDBusVirtualObject {
public:
    uint colorScheme = 0;

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        const QVariant inner = QVariant::fromValue(QDBusVariant(colorScheme));
        return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(inner))));
    }
};

TEST(DesktopColorScheme, FollowsThePortalAndOtherwiseThePalette) {
    PrivateBus bus;
    if (!bus.isRunning())
        GTEST_SKIP() << "there is no dbus-daemon";
    auto desktop = bus.connection(u"desktop"_s);
    const QString path = u"/org/freedesktop/portal/desktop"_s;
    // In a thread of its own, because the question is asked while this one waits.
    QThread portalThread;
    PortalSettings portal;
    portal.colorScheme = 1;
    portal.moveToThread(&portalThread);
    portalThread.start();
    ASSERT_TRUE(desktop.registerVirtualObject(path, &portal));
    ASSERT_TRUE(desktop.registerService(u"org.freedesktop.portal.Desktop"_s));
    const auto announce = [&](uint value) {
        auto change =
            QDBusMessage::createSignal(path, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        change << u"org.freedesktop.appearance"_s << u"color-scheme"_s
               << QVariant::fromValue(QDBusVariant(value));
        desktop.send(change);
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
    portalThread.quit();
    portalThread.wait();
}

} // namespace
} // namespace Veilshot
