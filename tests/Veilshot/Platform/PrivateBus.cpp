#include "tests/Veilshot/Platform/PrivateBus.h"

#include <QFile>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {

PrivateBus::PrivateBus() {
    QFile configuration(m_folder.filePath(u"bus.conf"_s));
    if (!configuration.open(QIODevice::WriteOnly))
        return;
    configuration.write(
        "<busconfig><listen>unix:dir=" + QFile::encodeName(m_folder.path()) +
        "</listen><policy context='default'><allow eavesdrop='true'/>"
        "<allow send_destination='*'/><allow send_type='signal'/><allow own='*'/></policy></busconfig>");
    configuration.close();
    m_daemon.start(u"dbus-daemon"_s,
                   {u"--nofork"_s, u"--print-address"_s, u"--config-file="_s + configuration.fileName()});
    if (m_daemon.waitForStarted() && (m_daemon.canReadLine() || m_daemon.waitForReadyRead()))
        m_address = QString::fromLocal8Bit(m_daemon.readLine()).trimmed();
    EXPECT_FALSE(m_address.isEmpty()) << "there is no dbus-daemon";
}

PrivateBus::~PrivateBus() {
    for (const QString& name : m_names)
        QDBusConnection::disconnectFromBus(name);
    m_daemon.kill();
    m_daemon.waitForFinished();
}

QDBusConnection PrivateBus::connection(const QString& name) {
    m_names.push_back(name);
    return QDBusConnection::connectToBus(m_address, name);
}

} // namespace Veilshot
