#pragma once

#include "tests/Veilshot/Platform/PrivateBus.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QMap>
#include <QThread>

namespace Veilshot {

/// The desktop portal's settings on a private bus.
class PortalStandIn : public QDBusVirtualObject {
public:
    using Settings = QMap<QString, QVariant>;

    /// Knows these settings by their keys, and answers until it goes.
    PortalStandIn(PrivateBus& bus, Settings settings)
        : m_settings(std::move(settings)), m_bus(bus.connection(QStringLiteral("desktop"))) {
        // In a thread of its own, because the question is asked while this one waits.
        moveToThread(&m_thread);
        m_thread.start();
        m_bus.registerVirtualObject(m_path, this);
        m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }
    ~PortalStandIn() override {
        m_bus.unregisterObject(m_path);
        m_thread.quit();
        m_thread.wait();
    }

    void announce(const QString& space, const QString& key, const QVariant& value) {
        auto change = QDBusMessage::createSignal(m_path, QStringLiteral("org.freedesktop.portal.Settings"),
                                                 QStringLiteral("SettingChanged"));
        change << space << key << QVariant::fromValue(QDBusVariant(value));
        m_bus.send(change);
    }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        const QVariant setting = m_settings.value(message.arguments().value(1).toString());
        if (!setting.isValid())
            return bus.send(message.createErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"),
                                                     QStringLiteral("not found")));
        const QVariant inner = QVariant::fromValue(QDBusVariant(setting));
        return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(inner))));
    }

private:
    const QString m_path = QStringLiteral("/org/freedesktop/portal/desktop");
    const Settings m_settings;
    QDBusConnection m_bus;
    QThread m_thread;
};

} // namespace Veilshot
