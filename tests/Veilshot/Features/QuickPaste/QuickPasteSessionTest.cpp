#include "tests/Veilshot/Features/QuickPaste/PreparedSession.h"

#include <QBuffer>
#include <QPromise>
#include <QThreadPool>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

using StandIns::waitUntil;

/// A picture that arrives when, and if, the test says.
struct AwaitedItem : ItemProvider {
    std::shared_ptr<QPromise<Data>> data = std::make_shared<QPromise<Data>>();
    QString type = u"image/png"_s;

    AwaitedItem() { data->start(); }
    QImage image() const override { return {}; }
    QStringList registeredTypes() const override { return {type}; }
    QFuture<Data> loadData(const QString&) const override { return data->future(); }
};

struct QuickPasteSessionTest : testing::Test, StandIns::SessionParts {
    QuickPasteSession session{collaborators()};
    int completions = 0;

    QuickPasteSessionTest() {
        QObject::connect(&session, &QuickPasteSession::completed, [this] { ++completions; });
    }

    static QByteArray png(QSize size) {
        QBuffer file;
        picture(size).save(&file, "PNG");
        return file.data();
    }
    std::shared_ptr<QPromise<ItemProvider::Data>> drop() {
        auto item = std::make_unique<AwaitedItem>();
        auto data = item->data;
        ItemProviders items;
        items.push_back(std::move(item));
        EXPECT_TRUE(session.drop(items));
        return data;
    }
    /// And lets everything happen that follows from it.
    static void deliver(QPromise<ItemProvider::Data>& promise, const ItemProvider::Data& data) {
        promise.addResult(data);
        promise.finish();
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
    }
};

TEST_F(QuickPasteSessionTest, PastesAPictureAndStaysWithoutOne) {
    const QString nothing = u"The clipboard doesn’t contain an image yet."_s;
    clipboard.held.setText(u"text"_s);
    session.paste();
    ASSERT_TRUE(waitUntil([&] { return session.errorMessage() == nothing; }));
    session.reset();
    clipboard.held.setData(u"image/png"_s, "no PNG");
    session.paste();
    ASSERT_TRUE(waitUntil([&] { return session.errorMessage() == nothing; }));
    EXPECT_EQ(beeps, 2);
    EXPECT_EQ(completions, 0);
    EXPECT_EQ(store->stage(), EditorStore::Stage::Empty);
    EXPECT_EQ(store->errorMessage(), QString());

    clipboard.held.setData(u"image/png"_s, png({3, 2}));
    session.paste();
    ASSERT_TRUE(waitUntil([&] { return completions == 1; }));
    EXPECT_EQ(store->originalImage().bitmap().size(), QSize(3, 2));
    EXPECT_EQ(beeps, 2);
}

TEST_F(QuickPasteSessionTest, OpensAFileUnlessTheUserThinksBetterOfIt) {
    session.openImage();
    ASSERT_TRUE(waitUntil([&] { return !session.isChoosingFile(); }));
    EXPECT_EQ(completions, 0);
    EXPECT_EQ(session.errorMessage(), QString());

    filePanel.answer = QUrl::fromLocalFile(u"/nowhere.png"_s);
    session.openImage();
    ASSERT_TRUE(waitUntil([&] { return completions == 1; }));
    EXPECT_TRUE(waitUntil([&] { return !store->errorMessage().isEmpty(); }));
}

TEST_F(QuickPasteSessionTest, RefusesADropWithoutAPicture) {
    auto item = std::make_unique<AwaitedItem>();
    item->type = u"text/plain"_s;
    ItemProviders items;
    items.push_back(std::move(item));
    EXPECT_FALSE(session.drop(items));
    EXPECT_EQ(session.errorMessage(), u"That item isn’t a readable image."_s);
    EXPECT_EQ(beeps, 1);
}

TEST_F(QuickPasteSessionTest, CompletesADropOnlyWithItsPicture) {
    deliver(*drop(), u"unplugged"_s);
    EXPECT_EQ(store->errorMessage(), u"unplugged"_s);
    EXPECT_EQ(completions, 0);
    deliver(*drop(), png({3, 2}));
    EXPECT_EQ(completions, 1);
}

TEST_F(QuickPasteSessionTest, DropsWhatWasCancelledOrOvertaken) {
    const auto cancelled = drop();
    session.cancel();
    deliver(*cancelled, png({3, 2}));
    EXPECT_EQ(store->stage(), EditorStore::Stage::Empty);

    const auto slow = drop();
    deliver(*drop(), png({5, 4}));
    deliver(*slow, png({3, 2}));
    EXPECT_EQ(store->originalImage().bitmap().size(), QSize(5, 4));
    EXPECT_EQ(completions, 1);

    const auto overtakenElsewhere = drop();
    store->load(picture({7, 6}));
    deliver(*overtakenElsewhere, png({3, 2}));
    EXPECT_EQ(store->originalImage().bitmap().size(), QSize(7, 6));
    EXPECT_EQ(completions, 1);
}

} // namespace
} // namespace Veilshot
