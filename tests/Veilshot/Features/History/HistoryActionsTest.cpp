#include "Veilshot/Features/History/HistoryActions.h"

#include "Veilshot/Features/History/HistoryDetail.h"
#include "tests/Veilshot/Features/History/KeptCopies.h"

#include <QFile>
#include <QThreadPool>

using namespace std::chrono_literals;

namespace Veilshot {
namespace {

struct HistoryActionsTest : KeptCopies {
    HistoryDetail detail;

    HistoryActionsTest() {
        detail.setHistory(&store);
        detail.setActions(&actions);
        detail.setEntry(tall());
    }
};

TEST_F(HistoryActionsTest, CopiesTheFullImageLastAskedForAndSaysSoForAWhile) {
    actions.copy(small());
    actions.copy(tall());
    waitForCopies(1);
    EXPECT_EQ(
        clipboard.written,
        std::vector{ImageSamples::gradient({600, 1000}).convertToFormat(clipboard.written[0].format())});
    EXPECT_TRUE(detail.didCopy());
    clock.advance(1s);
    actions.copy(tall());
    waitForCopies(2);
    clock.advance(500ms);
    EXPECT_FALSE(detail.didCopy()) << "the first time to run out counts";

    actions.copy(small());
    waitForCopies(3);
    EXPECT_FALSE(detail.didCopy()) << "another entry";
    clipboard.accepts = false;
    actions.copy(tall());
    waitForCopies(4);
    EXPECT_FALSE(detail.didCopy()) << "refused";
}

TEST_F(HistoryActionsTest, LeavesTheClipboardAloneIfTheFileCannotBeRead) {
    ASSERT_TRUE(QFile::remove(store.imageURL(tall()).toLocalFile()));
    actions.copy(tall());
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::processEvents();
    EXPECT_TRUE(clipboard.written.empty());
}

TEST_F(HistoryActionsTest, ShowsTheFullImageAsWideAsThereIsRoom) {
    EXPECT_EQ(detail.imageURL(), store.imageURL(tall()));
    EXPECT_DOUBLE_EQ(detail.imageHeight(300), 500);
    EXPECT_DOUBLE_EQ(detail.imageHeight(700), 1000);
}

} // namespace
} // namespace Veilshot
