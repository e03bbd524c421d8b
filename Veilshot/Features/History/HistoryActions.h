#pragma once

#include "Veilshot/Features/History/HistoryEntry.h"

#include <QObject>
#include <QtQmlIntegration>

namespace Veilshot {

class Clipboard;
class FileManager;
class HistoryStore;

/// What can be done with a kept copy outside the history. Main thread only; it never waits, and nothing here
/// reports a failure. It outlives the views, so that a copy under way does not depend on a card in sight.
class HistoryActions : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application has one desktop.")

public:
    /// All must outlive it.
    HistoryActions(const HistoryStore& history, Clipboard& clipboard, FileManager& fileManager,
                   QObject* parent = nullptr);

    /// Those of the application's own history, made on first use.
    static HistoryActions& shared();

    /// Writes the full image to the clipboard once a worker has read it; nothing if it cannot be read. Of
    /// several copies under way the last one asked for is written.
    Q_INVOKABLE void copy(const Veilshot::HistoryEntry& entry);
    /// Selects the full image's file in the file manager.
    Q_INVOKABLE void showInFileManager(const Veilshot::HistoryEntry& entry);

Q_SIGNALS:
    /// The clipboard holds the image now.
    void copied(const Veilshot::HistoryEntry& entry);

private:
    const HistoryStore& m_history;
    Clipboard& m_clipboard;
    FileManager& m_fileManager;
    quint64 m_latestCopy = 0;
};

} // namespace Veilshot
