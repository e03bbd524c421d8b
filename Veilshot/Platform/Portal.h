#pragma once

#include <QDBusConnection>
#include <QString>

/// Where the desktop portal is on a bus.
namespace Veilshot::Portal {

inline const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
inline const QString path = QStringLiteral("/org/freedesktop/portal/desktop");

/// The path of an object that the portal makes for this participant of the bus under a name of its choice.
/// `kind` is "request" or "session".
QString objectPath(const QDBusConnection& bus, const QString& kind, const QString& token);

} // namespace Veilshot::Portal
