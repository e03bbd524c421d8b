#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <atomic>
#include <memory>
#include <vector>

class QThread;

namespace Veilshot {

/// Sees every file that appears under some folders, also one that is there for a moment only (inotify).
class FolderWatch {
public:
    struct Sighting {
        QString path;
        QByteArray bytes;
        bool isRead = false; ///< false when it was gone before it could be read
    };

    enum class Depth { folder, tree };
    FolderWatch();
    ~FolderWatch();
    void add(const QString& folder, Depth depth);
    void start();
    /// Every state of every file, as often as one was seen. Ends the watch.
    std::vector<Sighting> stop();

private:
    void handleEvents();
    void look(const QString& path);

    int m_inotify;
    struct Place {
        QString folder;
        Depth depth;
    };
    QHash<int, Place> m_places;
    std::vector<Sighting> m_sightings;
    std::atomic<bool> m_isStopping = false;
    std::unique_ptr<QThread> m_thread;
};

} // namespace Veilshot
