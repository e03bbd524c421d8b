#include "Veilshot/Platform/FileManager.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>

using namespace Qt::StringLiterals;

namespace Veilshot {

SystemFileManager::SystemFileManager()
    : SystemFileManager(QDBusConnection::sessionBus(),
                        [](const QUrl& folder) { QDesktopServices::openUrl(folder); }) {}

SystemFileManager::SystemFileManager(const QDBusConnection& bus, OpenFolder openFolder)
    : m_bus(bus), m_openFolder(std::move(openFolder)) {}

void SystemFileManager::reveal(const QUrl& file) {
    const QUrl folder = file.adjusted(QUrl::RemoveFilename | QUrl::StripTrailingSlash);
    // A call without a bus never ends.
    if (!m_bus.isConnected())
        return m_openFolder(folder);
    auto message =
        QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
                                       u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    const QString startupID;
    message << QStringList(file.toString(QUrl::FullyEncoded)) << startupID;
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, folder] {
        watcher->deleteLater();
        if (watcher->isError())
            m_openFolder(folder);
    });
}

} // namespace Veilshot
