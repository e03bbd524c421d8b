#pragma once

#include "Veilshot/Features/History/HistoryActions.h"
#include "Veilshot/Features/History/HistoryStore.h"
#include "Veilshot/Platform/Clipboard.h"
#include "Veilshot/Platform/FileManager.h"
#include "Veilshot/Platform/UserDefaults.h"
#include "tests/Veilshot/Platform/ImageSamples.h"
#include "tests/Veilshot/StandIns.h"

#include <QTemporaryDir>
#include <gmock/gmock.h>

namespace Veilshot {

/// A history of two copies, and a desktop that writes down what is done with them.
struct KeptCopies : testing::Test {
    struct ClipboardStandIn : Clipboard {
        std::vector<QImage> written;
        bool accepts = true;

        const QMimeData* contents() const override { return nullptr; }
        bool write(const QImage& bitmap) override {
            written.push_back(bitmap);
            return accepts;
        }
    };
    struct FileManagerStandIn : FileManager {
        std::vector<QUrl> revealed;

        void reveal(const QUrl& file) override { revealed.push_back(file); }
    };

    const QTemporaryDir temporary;
    UserDefaults defaults{temporary.filePath(QStringLiteral("settings.conf"))};
    StandIns::ManualClock clock;
    HistoryStore store{QUrl::fromLocalFile(temporary.filePath(QStringLiteral("history"))), defaults, clock};
    ClipboardStandIn clipboard;
    FileManagerStandIn fileManager;
    HistoryActions actions{store, clipboard, fileManager};

    KeptCopies() {
        for (const QSize& size : {QSize(40, 30), QSize(600, 1000)})
            store.record(ImageSamples::gradient(size), 2, std::nullopt);
        store.finishRecordings();
    }
    const HistoryEntry& tall() const { return store.entries()[0]; }
    const HistoryEntry& small() const { return store.entries()[1]; }
    void waitForCopies(size_t count) const {
        ASSERT_TRUE(StandIns::waitUntil([&] { return clipboard.written.size() >= count; }));
    }
};

} // namespace Veilshot
