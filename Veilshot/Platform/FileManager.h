#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QUrl>
#include <functional>

namespace Veilshot {

/// The desktop's file manager. Main thread only; it never waits for it.
class FileManager {
public:
    virtual ~FileManager() = default;

    /// Shows the folder of a local file with the file selected. Nothing tells whether it did.
    virtual void reveal(const QUrl& file) = 0;
};

/// The one that answers to org.freedesktop.FileManager1 on the bus; without one, or if it refuses, the folder
/// alone is opened.
class SystemFileManager : public QObject, public FileManager {
public:
    using OpenFolder = std::function<void(const QUrl& folder)>;

    /// The session's bus, and the desktop's own way to open folders.
    SystemFileManager();
    SystemFileManager(const QDBusConnection& bus, OpenFolder openFolder);

    void reveal(const QUrl& file) override;

private:
    QDBusConnection m_bus;
    OpenFolder m_openFolder;
};

} // namespace Veilshot
