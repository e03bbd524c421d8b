#include "Veilshot/Features/History/HistoryListModel.h"

#include "Veilshot/Features/History/HistoryStore.h"
#include "Veilshot/Platform/UserDefaults.h"
#include "tests/Veilshot/Platform/ImageSamples.h"
#include "tests/Veilshot/StandIns.h"

#include <QTemporaryDir>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace Veilshot {
namespace {

TEST(HistoryListModel, TakesRowsInAndOutSinglyAndKeepsTheOthers) {
    const QTemporaryDir temporary;
    UserDefaults defaults(temporary.filePath(u"settings.conf"_s));
    StandIns::ManualClock clock;
    HistoryStore store(QUrl::fromLocalFile(temporary.filePath(u"history"_s)), defaults, clock);
    const auto record = [&](qint64 count, std::optional<QUuid> replacing = std::nullopt) {
        const auto recording = store.record(ImageSamples::gradient({4, 3}), count, replacing);
        store.finishRecordings();
        return *recording.result();
    };
    record(1);

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
    record(2);
    const QUuid third = record(3);
    EXPECT_THAT(changes, ElementsAre("+0-0", "+0-0", "+0-0"));
    changes.clear();

    store.deleteEntry(store.entries()[1]);
    record(4, third);
    EXPECT_THAT(changes, ElementsAre("-1-1", "-0-0", "+0-0"));
    EXPECT_EQ(model.clearMessage().mid(17, 2), u"2 "_s);

    const auto text = [&](HistoryListModel::Role role) { return model.index(1).data(role).toString(); };
    EXPECT_EQ(text(HistoryListModel::AreasTextRole), u"1 area hidden"_s);
    EXPECT_EQ(model.index(1).data(HistoryListModel::EntryRole).value<HistoryEntry>(), store.entries()[1]);
    EXPECT_EQ(model.index(1).data(HistoryListModel::ThumbnailURLRole).toUrl(),
              store.thumbnailURL(store.entries()[1]));
    const QString before = text(HistoryListModel::DateTextRole);
    clock.advance(std::chrono::hours(1));
    EXPECT_NE(text(HistoryListModel::DateTextRole), before);

    changes.clear();
    store.clear();
    EXPECT_THAT(changes, ElementsAre("-1-1", "-0-0"));
}

} // namespace
} // namespace Veilshot
