#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QTemporaryDir>

namespace Veilshot {

/// A message bus of the test's own, which starts no service by itself.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();

    QString address() const { return m_address; }
    /// A participant of the bus; the name is only Qt's.
    QDBusConnection connection(const QString& name);

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QStringList m_names;
};

} // namespace Veilshot
