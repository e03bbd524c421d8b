#include "Veilshot/Features/History/HistoryActions.h"

#include "Veilshot/Features/History/HistoryStore.h"
#include "Veilshot/Platform/Clipboard.h"
#include "Veilshot/Platform/FileManager.h"
#include "Veilshot/Platform/FutureOutcome.h"
#include "Veilshot/Platform/ImageDecoder.h"

#include <QtConcurrentRun>

namespace Veilshot {

HistoryActions::HistoryActions(const HistoryStore& history, Clipboard& clipboard, FileManager& fileManager,
                               QObject* parent)
    : QObject(parent), m_history(history), m_clipboard(clipboard), m_fileManager(fileManager) {}

HistoryActions& HistoryActions::shared() {
    static SystemClipboard clipboard;
    static SystemFileManager fileManager;
    static HistoryActions& instance = *new HistoryActions(HistoryStore::shared(), clipboard, fileManager);
    return instance;
}

void HistoryActions::copy(const HistoryEntry& entry) {
    const auto decoding =
        QtConcurrent::run(ImageDecoder::decodeFile, m_history.imageURL(entry).toLocalFile());
    whenDone(decoding, this, [this, entry, request = ++m_latestCopy](const DecodedImage& decoded) {
        const auto* image = std::get_if<QImage>(&decoded);
        if (image && request == m_latestCopy && m_clipboard.write(*image))
            Q_EMIT copied(entry);
    });
}

void HistoryActions::showInFileManager(const HistoryEntry& entry) {
    m_fileManager.reveal(m_history.imageURL(entry));
}

} // namespace Veilshot
