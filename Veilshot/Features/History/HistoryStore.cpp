#include "Veilshot/Features/History/HistoryStore.h"

#include "Veilshot/Features/History/HistoryIndex.h"
#include "Veilshot/Features/History/HistoryPreview.h"
#include "Veilshot/Platform/AtomicFile.h"
#include "Veilshot/Platform/FutureOutcome.h"
#include "Veilshot/Platform/PngFile.h"
#include "Veilshot/Platform/PrivateFolder.h"
#include "Veilshot/Platform/RegularFile.h"
#include "Veilshot/Platform/UserDefaults.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPromise>
#include <QStandardPaths>
#include <QtConcurrentRun>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

const QString enabledKey = u"historyEnabled"_s;
const QString indexName = u"history.json"_s;

QString imageName(QUuid id) {
    return HistoryIndex::idText(id) + u".png"_s;
}

QString thumbnailName(QUuid id) {
    return HistoryIndex::idText(id) + u"-thumb.png"_s;
}

bool writePNG(const QImage& image, const QString& path) {
    const QByteArray png = PngFile::encodePng(image);
    return !png.isEmpty() && !writeAtomically(path, png, Readership::ownerOnly);
}

/// The worker's part of a recording. It knows nothing of the store.
struct ImageFiles {
    QString folder;
    QString image;
    QString thumbnail;
};

bool writeFiles(const ImageFiles& files, const QImage& image) {
    if (!makePrivateFolder(files.folder) || !writePNG(image, files.image))
        return false;
    const QImage preview = HistoryPreview::downscaled(image, HistoryStore::previewPixels);
    return preview.isNull() || writePNG(preview, files.thumbnail);
}

} // namespace

struct HistoryStore::Recording {
    Entry entry;
    std::optional<QUuid> replacing;
    QFuture<bool> writing;
    QPromise<std::optional<QUuid>> listed;
};

HistoryStore::HistoryStore(const QUrl& directory, UserDefaults& defaults, const Clock& clock, QObject* parent)
    : QObject(parent), m_directory(directory), m_defaults(defaults), m_clock(clock), m_entries(loadIndex()),
      m_isEnabled(defaults.boolean(enabledKey).value_or(true)) {
    m_writers.setThreadPriority(QThread::LowPriority);
}

HistoryStore::~HistoryStore() {
    m_writers.waitForDone();
}

HistoryStore& HistoryStore::shared() {
    static const SystemClock clock;
    static HistoryStore& instance = [&]() -> HistoryStore& {
        auto& store = *new HistoryStore(defaultDirectory(), UserDefaults::standard(), clock);
        // Otherwise a copy made just before the end would leave files that no index lists.
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, &store,
                &HistoryStore::finishRecordings);
        return store;
    }();
    return instance;
}

QUrl HistoryStore::defaultDirectory() {
    QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (data.isEmpty())
        data = QDir::tempPath();
    return QUrl::fromLocalFile(QDir(data).filePath(u"Veilshot/History"_s));
}

void HistoryStore::setEnabled(bool isEnabled) {
    if (isEnabled != m_isEnabled) {
        m_isEnabled = isEnabled;
        Q_EMIT isEnabledChanged();
    }
    m_defaults.setBoolean(enabledKey, isEnabled);
}

QFuture<std::optional<QUuid>> HistoryStore::record(const QImage& image, qint64 regionCount,
                                                   std::optional<QUuid> replacing) {
    const Entry entry{QUuid::createUuid(), m_clock.now(), regionCount, image.width(), image.height()};
    const ImageFiles files{m_directory.toLocalFile(), path(imageName(entry.id)),
                           path(thumbnailName(entry.id))};
    Recording& recording = m_recordings.emplace_back();
    recording.entry = entry;
    recording.replacing = replacing;
    recording.writing = QtConcurrent::run(&m_writers, writeFiles, files, image);
    recording.listed.start();
    const auto listed = recording.listed.future();
    whenDone(recording.writing, this, [this, id = entry.id](bool) { finish(id); });
    return listed;
}

void HistoryStore::finishRecordings() {
    while (!m_recordings.empty()) {
        m_recordings.front().writing.waitForFinished();
        finish(m_recordings.front().entry.id);
    }
}

void HistoryStore::clear() {
    for (const Entry& entry : m_entries)
        removeFiles(entry);
    m_entries.clear();
    saveIndex();
    Q_EMIT entriesChanged();
}

void HistoryStore::deleteEntry(const Entry& entry) {
    removeFiles(entry);
    std::erase_if(m_entries, [&](const Entry& listed) { return listed.id == entry.id; });
    saveIndex();
    Q_EMIT entriesChanged();
}

QUrl HistoryStore::imageURL(const Entry& entry) const {
    return QUrl::fromLocalFile(path(imageName(entry.id)));
}

QUrl HistoryStore::thumbnailURL(const Entry& entry) const {
    return QUrl::fromLocalFile(path(thumbnailName(entry.id)));
}

HistoryStore::Entries HistoryStore::loadIndex() const {
    constexpr qint64 largestIndex = 16'000'000;
    const auto json = readRegularFile(path(indexName), largestIndex);
    if (!std::holds_alternative<QByteArray>(json))
        return {};
    Entries entries = HistoryIndex::decode(std::get<QByteArray>(json)).value_or(Entries());
    std::erase_if(entries, [&](const Entry& entry) { return !QFile::exists(path(imageName(entry.id))); });
    return entries;
}

bool HistoryStore::saveIndex() const {
    return makePrivateFolder(m_directory.toLocalFile()) &&
           !writeAtomically(path(indexName), HistoryIndex::encode(m_entries), Readership::ownerOnly);
}

void HistoryStore::removeFiles(const Entry& entry) const {
    QFile::remove(path(imageName(entry.id)));
    QFile::remove(path(thumbnailName(entry.id)));
}

QString HistoryStore::path(const QString& fileName) const {
    return QDir(m_directory.toLocalFile()).filePath(fileName);
}

void HistoryStore::finish(QUuid recordingID) {
    const auto position = std::ranges::find(m_recordings, recordingID,
                                            [](const Recording& recording) { return recording.entry.id; });
    if (position == m_recordings.end())
        return; // finished already, by finishRecordings
    // Off the list before anybody hears of it, who may start the next one.
    Recording recording = std::move(*position);
    m_recordings.erase(position);
    std::optional<QUuid> id;
    if (recording.writing.result()) {
        id = recording.entry.id;
        Entries entries = m_entries;
        Entries dropped;
        const auto drop = [&](auto first, auto last) {
            std::move(first, last, std::back_inserter(dropped));
            entries.erase(first, last);
        };
        if (recording.replacing) {
            const auto replaced = std::ranges::find(entries, *recording.replacing, &Entry::id);
            drop(replaced, replaced == entries.end() ? replaced : replaced + 1);
        }
        entries.insert(entries.begin(), recording.entry);
        if (entries.size() > maximumEntries)
            drop(entries.begin() + maximumEntries, entries.end());
        m_entries = std::move(entries);
        const bool isSaved = saveIndex();
        for (const Entry& entry : dropped)
            removeFiles(entry);
        // On a full disk, what has just gone may have made the room that the index needs.
        if (!isSaved)
            saveIndex();
        Q_EMIT entriesChanged();
    }
    recording.listed.addResult(id);
    recording.listed.finish();
}

} // namespace Veilshot
