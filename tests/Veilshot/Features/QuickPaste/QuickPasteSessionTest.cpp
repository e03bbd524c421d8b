#include "tests/Veilshot/Features/QuickPaste/PreparedSession.h"

#include <QPromise>
#include <QThreadPool>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

using StandIns::waitUntil;

/// A picture that arrives when, and if, the test says.
struct AwaitedItem : ItemProvider {
    std::shared_ptr<QPromise<Data>> data = std::make_shared<QPromise<Data>>();

    AwaitedItem() { data->start(); }
    QImage image() const override { return {}; }
    QStringList registeredTypes() const override { return {u"image/png"_s}; }
    QFuture<Data> loadData(const QString&) const override { return data->future(); }
};

struct QuickPasteSessionTest : testing::Test, StandIns::SessionParts {
    QuickPasteSession session{collaborators()};
    int completions = 0;

    QuickPasteSessionTest() {
        QObject::connect(&session, &QuickPasteSession::completed, [this] { ++completions; });
    }

    static QByteArray png(QSize size) { return ImageSamples::encoded(picture(size), "png"); }
    std::shared_ptr<QPromise<ItemProvider::Data>> drop() {
        auto item = std::make_unique<AwaitedItem>();
        auto data = item->data;
        ItemProviders items;
        items.push_back(std::move(item));
        EXPECT_TRUE(session.drop(items));
        return data;
    }
    void expectShown(QSize size) { EXPECT_EQ(store->originalImage().bitmap().size(), size); }
    /// And lets everything happen that follows from it.
    static void deliver(QPromise<ItemProvider::Data>& promise, const ItemProvider::Data& data) {
        promise.addResult(data);
        promise.finish();
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
    }
};

TEST_F(QuickPasteSessionTest, PastesAPictureAndStaysWithoutOne) {
    for (const QString& type : {u"text/plain"_s, u"image/png"_s}) {
        clipboard.held.setData(type, "no picture");
        session.paste();
        ASSERT_TRUE(waitUntil([&] { return !session.errorMessage().isEmpty(); }));
        EXPECT_EQ(session.errorMessage(), u"The clipboard doesn’t contain an image yet."_s);
        session.reset();
    }
    EXPECT_EQ(beeps, 2);
    EXPECT_EQ(completions, 0);
    EXPECT_EQ(store->errorMessage(), QString());

    clipboard.held.setData(u"image/png"_s, png({3, 2}));
    session.paste();
    ASSERT_TRUE(waitUntil([&] { return completions == 1; }));
    expectShown({3, 2});
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

TEST_F(QuickPasteSessionTest, TakesNoDropThatFailsOrIsCancelledOrOvertaken) {
    EXPECT_FALSE(session.drop({}));
    EXPECT_EQ(session.errorMessage(), u"That item isn’t a readable image."_s);
    EXPECT_EQ(beeps, 1);
    deliver(*drop(), u"unplugged"_s);
    EXPECT_EQ(store->errorMessage(), u"unplugged"_s);
    const auto cancelled = drop();
    session.cancel();
    deliver(*cancelled, png({3, 2}));
    EXPECT_EQ(store->stage(), EditorStore::Stage::Empty);

    const auto slow = drop();
    deliver(*drop(), png({5, 4}));
    deliver(*slow, png({3, 2}));
    expectShown({5, 4});
    EXPECT_EQ(completions, 1);

    const auto overtakenElsewhere = drop();
    store->load(picture({7, 6}));
    deliver(*overtakenElsewhere, png({3, 2}));
    expectShown({7, 6});
    EXPECT_EQ(completions, 1);
}

} // namespace
} // namespace Veilshot
