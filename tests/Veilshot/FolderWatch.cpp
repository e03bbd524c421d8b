#include "tests/Veilshot/FolderWatch.h"

#include <QDir>
#include <QFile>
#include <QThread>
#include <cstring>
#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace Veilshot {

FolderWatch::FolderWatch() : m_inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

FolderWatch::~FolderWatch() {
    stop();
    ::close(m_inotify);
}

void FolderWatch::add(const QString& folder, Depth depth) {
    const int place = ::inotify_add_watch(m_inotify, QFile::encodeName(folder).constData(),
                                          IN_CREATE | IN_CLOSE_WRITE | IN_MOVED_TO);
    m_places[place] = {folder, depth};
    if (depth == Depth::folder)
        return;
    // What was put there before the watch was.
    const QDir dir(folder);
    for (const QString& name : dir.entryList(QDir::Files | QDir::Hidden))
        look(dir.filePath(name));
    for (const QString& name : dir.entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot))
        add(dir.filePath(name), depth);
}

void FolderWatch::start() {
    m_thread.reset(QThread::create([this] {
        while (!m_isStopping) {
            pollfd waiting{m_inotify, POLLIN, 0};
            ::poll(&waiting, 1, 10);
            handleEvents();
        }
        handleEvents();
    }));
    m_thread->start();
}

std::vector<FolderWatch::Sighting> FolderWatch::stop() {
    m_isStopping = true;
    if (m_thread)
        m_thread->wait();
    return std::exchange(m_sightings, {});
}

void FolderWatch::handleEvents() {
    alignas(inotify_event) char buffer[16'384];
    for (ssize_t size; (size = ::read(m_inotify, buffer, sizeof buffer)) > 0;) {
        for (const char* at = buffer; at < buffer + size;) {
            const auto* event = reinterpret_cast<const inotify_event*>(at);
            at += sizeof(inotify_event) + event->len;
            const Place place = m_places.value(event->wd);
            if (event->len == 0 || place.folder.isEmpty())
                continue;
            const QString path = place.folder + u'/' + QFile::decodeName(event->name);
            if (!(event->mask & IN_ISDIR))
                look(path);
            else if (place.depth == Depth::tree)
                add(path, place.depth);
        }
    }
}

void FolderWatch::look(const QString& path) {
    QFile file(path);
    const bool isRead = file.open(QIODevice::ReadOnly);
    m_sightings.push_back({path, file.isOpen() ? file.readAll() : QByteArray(), isRead});
}

} // namespace Veilshot
