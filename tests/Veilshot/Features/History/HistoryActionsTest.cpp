#include "Veilshot/Features/History/HistoryActions.h"

#include "Veilshot/Features/History/HistoryDetail.h"
#include "Veilshot/Platform/Clipboard.h"
#include "Veilshot/Platform/FileManager.h"
#include "Veilshot/Platform/UserDefaults.h"
#include "tests/Veilshot/Platform/ImageSamples.h"
#include "tests/Veilshot/StandIns.h"

#include <QFile>
#include <QTemporaryDir>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Veilshot {
namespace {

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

struct HistoryActionsTest : testing::Test {
    const QTemporaryDir temporary;
    UserDefaults defaults{temporary.filePath(u"settings.conf"_s)};
    StandIns::ManualClock clock;
    HistoryStore store{QUrl::fromLocalFile(temporary.filePath(u"history"_s)), defaults, clock};
    ClipboardStandIn clipboard;
    FileManagerStandIn fileManager;
    HistoryActions actions{store, clipboard, fileManager};
    HistoryDetail detail;

    void SetUp() override {
        for (const QSize& size : {QSize(4, 3), QSize(600, 1000)})
            store.record(ImageSamples::gradient(size), 2, std::nullopt);
        store.finishRecordings();
        detail.setHistory(&store);
        detail.setActions(&actions);
        detail.setEntry(store.entries()[0]);
    }
    void waitForCopies(size_t count) {
        ASSERT_TRUE(StandIns::waitUntil([&] { return clipboard.written.size() >= count; }));
    }
};

TEST_F(HistoryActionsTest, CopiesTheFullImageLastAskedForAndSaysSoForAWhile) {
    actions.copy(store.entries()[1]);
    actions.copy(store.entries()[0]);
    waitForCopies(1);
    EXPECT_EQ(
        clipboard.written,
        std::vector{ImageSamples::gradient({600, 1000}).convertToFormat(clipboard.written[0].format())});
    EXPECT_TRUE(detail.didCopy());
    clock.advance(1s);
    actions.copy(store.entries()[0]);
    waitForCopies(2);
    // The first time to run out counts.
    clock.advance(500ms);
    EXPECT_FALSE(detail.didCopy());

    actions.copy(store.entries()[1]);
    waitForCopies(3);
    EXPECT_FALSE(detail.didCopy()) << "another entry";
    clipboard.accepts = false;
    actions.copy(store.entries()[0]);
    waitForCopies(4);
    EXPECT_FALSE(detail.didCopy()) << "refused";
}

TEST_F(HistoryActionsTest, LeavesTheClipboardAloneIfTheFileCannotBeRead) {
    const HistoryEntry entry = store.entries()[0];
    ASSERT_TRUE(QFile::remove(store.imageURL(entry).toLocalFile()));
    actions.copy(entry);
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_TRUE(clipboard.written.empty());
}

TEST_F(HistoryActionsTest, ShowsTheFullImage) {
    actions.showInFileManager(store.entries()[1]);
    EXPECT_EQ(fileManager.revealed, std::vector{store.imageURL(store.entries()[1])});
    EXPECT_EQ(detail.imageURL(), store.imageURL(store.entries()[0]));
    EXPECT_DOUBLE_EQ(detail.imageHeight(300), 500);
    EXPECT_DOUBLE_EQ(detail.imageHeight(700), 1000);
}

} // namespace
} // namespace Veilshot
