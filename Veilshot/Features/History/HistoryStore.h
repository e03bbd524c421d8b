#pragma once

#include "Veilshot/Features/History/HistoryEntry.h"
#include "Veilshot/Platform/Clock.h"

#include <QFuture>
#include <QImage>
#include <QObject>
#include <QThreadPool>
#include <QUrl>
#include <QtQmlIntegration>
#include <list>
#include <optional>

namespace Veilshot {

class UserDefaults;

/// The protected copies that the user copied or exported, newest first and at most 30, in a folder of their
/// own: per copy the full image and a preview, and an index of them all. The unprotected picture never gets
/// here.
///
/// Main thread only. File errors are absorbed: a copy that cannot be kept is not listed, and what cannot be
/// written or deleted stays as it was. Nobody but the user can read the folder or what is in it.
///
/// Whenever the process dies, the index can be read and every copy that it lists is complete or gone
/// altogether: a copy is listed once its files are there, and taken off the list before they go to make room
/// for another. Only what the user deletes goes before its line in the index does.
class HistoryStore : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application has one history.")
    Q_PROPERTY(Veilshot::HistoryEntries entries READ entries NOTIFY entriesChanged)
    Q_PROPERTY(int count READ count NOTIFY entriesChanged)
    /// How many copies are kept at most.
    Q_PROPERTY(int limit READ limit CONSTANT)
    Q_PROPERTY(bool isEnabled READ isEnabled WRITE setEnabled NOTIFY isEnabledChanged)

public:
    using Entry = HistoryEntry;
    using Entries = HistoryEntries;

    static constexpr int maximumEntries = 30;
    static int limit() { return maximumEntries; }
    /// The longer side of a preview.
    static constexpr int previewPixels = 480;

    /// Reads the index and the setting; writes nothing. `defaults` and `clock` must outlive the store.
    HistoryStore(const QUrl& directory, UserDefaults& defaults, const Clock& clock,
                 QObject* parent = nullptr);
    /// Waits for the files that are being written. What was not yet listed then is not listed any more.
    ~HistoryStore() override;

    /// The application's own, made on first use. It lives as long as the process.
    static HistoryStore& shared();
    /// "Veilshot/History" in the per-user data folder, or in the temporary folder where there is none.
    static QUrl defaultDirectory();

    const Entries& entries() const { return m_entries; }
    int count() const { return int(m_entries.size()); }
    /// The one that dates the entries.
    const Clock& clock() const { return m_clock; }
    const QUrl& directory() const { return m_directory; }

    /// Whether new copies are to be recorded; the caller of `record` asks. Kept in the defaults as
    /// "historyEnabled".
    bool isEnabled() const { return m_isEnabled; }
    void setEnabled(bool isEnabled);

    /// Keeps a protected bitmap (see ImageDecoder), in place of the entry `replacing` if that is listed. A
    /// worker writes the files; the future then gives the id of the new entry, or nothing if they could not
    /// be written, and finishes in the main thread. Several recordings may be under way; each is listed when
    /// it is done.
    QFuture<std::optional<QUuid>> record(const QImage& image, qint64 regionCount,
                                         std::optional<QUuid> replacing);
    /// Waits until every recording under way is listed. For the end of the application.
    void finishRecordings();

    /// Deletes the files of every entry listed, and nothing else in the folder.
    Q_INVOKABLE void clear();
    /// Named after what it does, because `delete` is a word of the language.
    Q_INVOKABLE void deleteEntry(const Veilshot::HistoryEntry& entry);

    Q_INVOKABLE QUrl imageURL(const Veilshot::HistoryEntry& entry) const;
    Q_INVOKABLE QUrl thumbnailURL(const Veilshot::HistoryEntry& entry) const;

Q_SIGNALS:
    void entriesChanged();
    void isEnabledChanged();

private:
    struct Recording;

    Entries loadIndex() const;
    bool saveIndex() const;
    void removeFiles(const Entry& entry) const;
    QString path(const QString& fileName) const;
    void finish(QUuid recording);

    QUrl m_directory;
    UserDefaults& m_defaults;
    const Clock& m_clock;
    Entries m_entries;
    bool m_isEnabled;
    std::list<Recording> m_recordings;
    QThreadPool m_writers;
};

} // namespace Veilshot
