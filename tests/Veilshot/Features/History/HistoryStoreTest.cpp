#include "Veilshot/Features/History/HistoryStore.h"

#include "Veilshot/Features/History/HistoryIndex.h"
#include "Veilshot/Platform/ImageDecoder.h"
#include "Veilshot/Platform/UserDefaults.h"
#include "tests/Veilshot/FileContents.h"
#include "tests/Veilshot/Platform/ImageSamples.h"
#include "tests/Veilshot/StandIns.h"

#include <QDir>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using Veilshot::HistoryIndex::idText;

namespace Veilshot {
namespace {

int mode(const QString& path) {
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? int(status.st_mode & 0777) : -1;
}

struct HistoryStoreTest : testing::Test {
    const QTemporaryDir temporary;
    const QString parent = temporary.filePath(u"data"_s);
    const QString folder = parent + u"/Veilshot/History"_s;
    const QString indexPath = folder + u"/history.json"_s;
    const QImage image = ImageSamples::gradient({40, 30});
    UserDefaults defaults{temporary.filePath(u"settings.conf"_s)};
    StandIns::ManualClock clock;
    HistoryStore store{QUrl::fromLocalFile(folder), defaults, clock};

    std::optional<QUuid> finished(const QFuture<std::optional<QUuid>>& recording) {
        EXPECT_TRUE(StandIns::waitUntil([&] { return recording.isFinished(); }));
        return recording.result();
    }
    std::optional<QUuid> record(std::optional<QUuid> replacing = std::nullopt) {
        return finished(store.record(image, 3, replacing));
    }
    HistoryStore restarted() { return HistoryStore(store.directory(), defaults, clock); }

    QByteArray index() const { return FileContents::read(indexPath); }
    QStringList files() const {
        return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    /// The names of everything that belongs to the copies, and of these, in the order of `files`.
    static QStringList filesOf(const std::vector<QUuid>& ids, QStringList others = {u"history.json"_s}) {
        for (const QUuid& id : ids)
            others << idText(id) + u"-thumb.png"_s << idText(id) + u".png"_s;
        others.sort(Qt::CaseInsensitive);
        return others;
    }
    static std::vector<QUuid> ids(const HistoryStore& store) {
        std::vector<QUuid> result;
        std::ranges::transform(store.entries(), std::back_inserter(result), &HistoryEntry::id);
        return result;
    }
};

TEST_F(HistoryStoreTest, WritesNothingBeforeTheFirstCopyAndThatForTheOwnerAlone) {
    EXPECT_TRUE(store.entries().empty() && QDir(temporary.path()).isEmpty());

    ASSERT_TRUE(QDir().mkdir(parent, QFile::Permissions(0x7055)));
    const QImage wide = ImageSamples::gradient({1000, 500});
    const auto id = finished(store.record(wide, 3, std::nullopt));
    ASSERT_TRUE(id);
    EXPECT_EQ(files(), filesOf({*id}));
    for (const QString& name : files())
        EXPECT_EQ(mode(folder + u'/' + name), 0600) << name.toStdString();
    EXPECT_EQ(mode(folder), 0700);
    EXPECT_EQ(mode(parent + u"/Veilshot"_s), 0700);
    EXPECT_EQ(mode(parent), 0755);

    const auto decoded = [](const QUrl& url) {
        return std::get<QImage>(ImageDecoder::decodeFile(url.toLocalFile()));
    };
    EXPECT_EQ(decoded(store.imageURL(store.entries().at(0))), ImageDecoder::toBitmap(wide));
    EXPECT_EQ(decoded(store.thumbnailURL(store.entries().at(0))).size(), QSize(480, 240));
}

TEST_F(HistoryStoreTest, StartsWithTheCopiesOfAnIndexOfExactlyThisText) {
    const auto first = record();
    clock.advance(std::chrono::milliseconds(1500));
    const auto second = finished(store.record(ImageSamples::gradient({7, 8}), 0, std::nullopt));
    ASSERT_TRUE(first && second);
    const QString text =
        u"[{\"id\":\"%1\",\"createdAt\":811692801.623,\"regionCount\":0,\"pixelWidth\":7,\"pixelHeight\":8},"
        u"{\"id\":\"%2\",\"createdAt\":811692800.123,\"regionCount\":3,\"pixelWidth\":40,\"pixelHeight\":30}]"_s;
    EXPECT_EQ(QString::fromUtf8(index()), text.arg(idText(*second), idText(*first)));
    EXPECT_EQ(restarted().entries(), store.entries());

    ASSERT_TRUE(QFile::remove(store.imageURL(store.entries().at(1)).toLocalFile()));
    ASSERT_TRUE(QFile::remove(store.thumbnailURL(store.entries().at(0)).toLocalFile()));
    const QByteArray before = index();
    const QStringList filesBefore = files();
    EXPECT_THAT(ids(restarted()), ElementsAre(*second));
    EXPECT_EQ(index(), before);
    FileContents::write(indexPath, before.chopped(1));
    EXPECT_TRUE(restarted().entries().empty());
    EXPECT_EQ(files(), filesBefore);
}

TEST_F(HistoryStoreTest, KeepsThirtyCopies) {
    std::vector<QUuid> expected;
    std::vector<size_t> announced;
    QObject::connect(&store, &HistoryStore::entriesChanged,
                     [&] { announced.push_back(store.entries().size()); });
    for (int i = 0; i < 32; ++i)
        expected.insert(expected.begin(), record().value());
    expected.resize(30);
    EXPECT_EQ(ids(restarted()), expected);
    EXPECT_EQ(files(), filesOf(expected));
    EXPECT_EQ(announced.size(), 32u);
    EXPECT_EQ(std::ranges::max(announced), 30u);
}

TEST_F(HistoryStoreTest, ReplacesACopyOnlyByOneThatIsWritten) {
    const QUuid oldest = record().value(), middle = record().value(), newest = record().value();
    const QUuid replacement = record(middle).value();
    EXPECT_EQ(files(), filesOf({replacement, newest, oldest}));
    const QUuid another = record(middle).value(); // which is gone already
    EXPECT_THAT(ids(store), ElementsAre(another, replacement, newest, oldest));

    // A file where the folder should be keeps even the superuser from writing.
    const HistoryStore::Entries before = store.entries();
    ASSERT_TRUE(QDir().rename(folder, parent + u"/elsewhere"_s));
    FileContents::write(folder, "in the way");
    EXPECT_EQ(record(newest), std::nullopt);
    EXPECT_EQ(store.entries(), before);
    ASSERT_TRUE(QFile::remove(folder) && QDir().rename(parent + u"/elsewhere"_s, folder));
    EXPECT_EQ(restarted().entries(), before);
    EXPECT_EQ(files(), filesOf(ids(store)));
}

TEST_F(HistoryStoreTest, DeletesWhatItListsAndNothingElse) {
    ASSERT_TRUE(QDir().mkpath(folder));
    store.clear();
    EXPECT_EQ(index(), "[]");
    EXPECT_EQ(mode(folder), 0700);

    record();
    const QUuid kept = record().value();
    FileContents::write(folder + u"/a-note.png"_s, "somebody's");
    store.deleteEntry(store.entries().at(1));
    EXPECT_THAT(ids(restarted()), ElementsAre(kept));
    EXPECT_EQ(files(), filesOf({kept}, {u"a-note.png"_s, u"history.json"_s}));
    store.clear();
    EXPECT_TRUE(store.entries().empty());
    EXPECT_EQ(index(), "[]");
    EXPECT_EQ(files(), (QStringList{u"a-note.png"_s, u"history.json"_s}));
}

TEST_F(HistoryStoreTest, ListsEachOfSeveralRecordingsUnderWay) {
    const auto first = store.record(image, 1, std::nullopt), second = store.record(image, 2, std::nullopt);
    EXPECT_TRUE(store.entries().empty());
    const QUuid firstID = finished(first).value(), secondID = finished(second).value();
    EXPECT_THAT(ids(store), testing::UnorderedElementsAre(firstID, secondID));

    // At the end of the application no event loop runs any more.
    const auto third = store.record(image, 3, std::nullopt), fourth = store.record(image, 4, std::nullopt);
    store.finishRecordings();
    ASSERT_TRUE(third.isFinished() && fourth.isFinished());
    QCoreApplication::processEvents();
    EXPECT_THAT(ids(store), ElementsAre(*fourth.result(), *third.result(), testing::_, testing::_));
    EXPECT_EQ(restarted().entries(), store.entries());

    restarted().record(image, 5, std::nullopt);
    EXPECT_EQ(restarted().entries(), store.entries());
}

TEST_F(HistoryStoreTest, RemembersWhetherItIsSwitchedOn) {
    int changes = 0;
    QObject::connect(&store, &HistoryStore::isEnabledChanged, [&] { ++changes; });
    const QUuid kept = record().value();
    store.setEnabled(false);
    EXPECT_FALSE(store.isEnabled() || restarted().isEnabled());
    EXPECT_EQ(files(), filesOf({kept}));
    defaults.setText(u"historyEnabled"_s, u"0"_s);
    EXPECT_TRUE(restarted().isEnabled());
    store.setEnabled(true);
    EXPECT_TRUE(store.isEnabled() && restarted().isEnabled());
    EXPECT_EQ(changes, 2);
}

} // namespace
} // namespace Veilshot
