#include "Veilshot/Features/History/HistoryListModel.h"

#include "tests/Veilshot/Features/History/KeptCopies.h"

using testing::ElementsAre;

namespace Veilshot {
namespace {

using HistoryListModelTest = KeptCopies;

TEST_F(HistoryListModelTest, TakesRowsInAndOutSinglyAndKeepsTheOthers) {
    const auto record = [&](std::optional<QUuid> replacing = std::nullopt) {
        const auto recording = store.record(ImageSamples::gradient({4, 3}), 1, replacing);
        store.finishRecordings();
        return *recording.result();
    };
    HistoryListModel model;
    std::vector<std::string> changes;
    const auto note = [&](const char* what) {
        return [&changes, what](const QModelIndex&, int first, int last) {
            changes.push_back(what + std::to_string(first) + '-' + std::to_string(last));
        };
    };
    QObject::connect(&model, &HistoryListModel::rowsInserted, note("+"));
    QObject::connect(&model, &HistoryListModel::rowsRemoved, note("-"));
    model.setHistory(&store);
    const QUuid third = record();
    EXPECT_THAT(changes, ElementsAre("+0-0", "+1-1", "+0-0"));
    changes.clear();

    store.deleteEntry(store.entries()[1]);
    record(third);
    EXPECT_THAT(changes, ElementsAre("-1-1", "-0-0", "+0-0"));
    EXPECT_EQ(model.index(1).data(HistoryListModel::EntryRole).value<HistoryEntry>(), store.entries()[1]);
    const QVariant before = model.index(1).data(HistoryListModel::DateTextRole);
    clock.advance(std::chrono::hours(1));
    EXPECT_NE(model.index(1).data(HistoryListModel::DateTextRole), before);

    changes.clear();
    store.clear();
    EXPECT_THAT(changes, ElementsAre("-1-1", "-0-0"));
}

} // namespace
} // namespace Veilshot
