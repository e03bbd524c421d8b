#include "Veilshot/Features/Editor/EditorStore.h"

#include "Veilshot/Features/History/HistoryStore.h"
#include "Veilshot/Platform/Clipboard.h"
#include "Veilshot/Platform/ImageDecoder.h"
#include "Veilshot/Platform/UserDefaults.h"
#include "VeilshotCore/Rendering/ScreenshotRedactor.h"
#include "tests/Veilshot/Platform/ImageSamples.h"
#include "tests/Veilshot/StandIns.h"

#include <QMimeData>
#include <QPromise>
#include <QTemporaryDir>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace Veilshot {
namespace {

using StandIns::waitUntil;
using Stage = EditorStore::Stage;
using PreviewMode = EditorStore::PreviewMode;

/// Answers when, and what, the test says.
struct PretendDetector {
    std::vector<std::shared_ptr<QPromise<DetectionOutcome>>> scans;

    Detection detection() {
        return [this](const QImage&) {
            scans.push_back(std::make_shared<QPromise<DetectionOutcome>>());
            scans.back()->start();
            return scans.back()->future();
        };
    }
    void answer(size_t scan, const DetectionOutcome& outcome) const {
        scans.at(scan)->addResult(outcome);
        scans.at(scan)->finish();
    }
};

struct PretendClipboard : Clipboard {
    std::unique_ptr<QMimeData> held = std::make_unique<QMimeData>();
    QImage written;
    bool isRefusing = false;

    const QMimeData* contents() const override { return held.get(); }
    bool write(const QImage& bitmap) override {
        written = isRefusing ? written : bitmap;
        return !isRefusing;
    }
};

QImage picture(QColor color) {
    return ImageSamples::filled(color, {200, 100});
}

SensitiveRegion region(SensitiveKind kind, double x = 0) {
    return {QUuid::createUuid(), {x, 0, 0.1, 0.1}, kind};
}

struct EditorStoreTest : testing::Test {
    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(u"defaults.conf"_s)};
    StandIns::ManualClock clock;
    HistoryStore history{QUrl::fromLocalFile(folder.filePath(u"History"_s)), defaults, clock};
    PretendClipboard clipboard;
    StandIns::AnsweringPanel panel;
    PretendDetector text;
    PretendDetector people;
    std::optional<QImage> renderingInstead;
    EditorStore store{&history,
                      {.detectText = text.detection(),
                       .detectPeople = people.detection(),
                       .render =
                           [this](const QImage& bitmap, const SensitiveRegions& regions, RedactionStyle style,
                                  double intensity) {
                               return renderingInstead.value_or(
                                   ScreenshotRedactor().render(bitmap, regions, style, intensity));
                           },
                       .clipboard = clipboard,
                       .filePanel = panel,
                       .clock = clock}};

    /// Ends the latest scan of a text, after which people are sought.
    void findText(const SensitiveRegions& found) {
        const size_t scansBefore = people.scans.size();
        text.answer(text.scans.size() - 1, found);
        ASSERT_TRUE(waitUntil([&] { return people.scans.size() > scansBefore; }));
    }
    void findPeople(const DetectionOutcome& outcome = SensitiveRegions()) {
        people.answer(people.scans.size() - 1, outcome);
        waitForStage(Stage::Ready);
    }
    /// Loads and scans an image; `found` is its text.
    void makeReady(QColor color, const SensitiveRegions& found = {}) {
        store.load(picture(color));
        findText(found);
        findPeople();
    }
    void waitForStage(Stage stage) {
        ASSERT_TRUE(waitUntil([&] { return store.stage() == stage; }));
    }
    void waitForError(const QString& message) {
        EXPECT_TRUE(waitUntil([&] { return !store.errorMessage().isEmpty(); }));
        EXPECT_EQ(store.errorMessage(), message);
        store.setErrorMessage({});
    }
    void waitForSize(QSize size) {
        ASSERT_TRUE(waitUntil([&] { return store.originalImage().bitmap().size() == size; }));
    }
    void copy() {
        store.copyProtectedImage();
        history.finishRecordings();
    }
    QColor keptColor() const {
        return QImage(history.imageURL(history.entries().at(0)).toLocalFile()).pixelColor(100, 50);
    }
    void settle() {
        for (int turn = 0; turn < 5; ++turn)
            QCoreApplication::processEvents();
    }
    /// The colour of the protected image in the bottom left corner, where `region()` lies, and elsewhere.
    QColor corner() const { return store.protectedImage().bitmap().pixelColor(1, 98); }
    QColor middle() const { return store.protectedImage().bitmap().pixelColor(100, 50); }
    QUrl file(const QString& name) const { return QUrl::fromLocalFile(folder.filePath(name)); }
};

TEST_F(EditorStoreTest, ShowsTheTextFoundWhilePeopleAreStillSought) {
    store.setRedactionStyle(RedactionStyle::blackout);
    QImage image = picture(Qt::red);
    image.setDevicePixelRatio(2);
    store.load(image);
    EXPECT_EQ(store.stage(), Stage::Scanning);
    EXPECT_EQ(store.scanMessage(), u"Finding personal details…"_s);
    EXPECT_EQ(store.originalImage().bitmap().size(), QSize(200, 100));
    EXPECT_EQ(store.protectedImage(), store.originalImage());
    store.copyProtectedImage();
    EXPECT_TRUE(clipboard.written.isNull()) << "nothing is hidden yet";

    const auto name = region(SensitiveKind::name), face = region(SensitiveKind::person, 0.5);
    findText({name});
    EXPECT_EQ(store.scanMessage(), u"Finding people…"_s);
    EXPECT_EQ(store.stage(), Stage::Scanning);
    EXPECT_EQ(corner(), Qt::black);
    EXPECT_EQ(middle(), Qt::red);

    store.addCustomBlur({0.2, 0.2, 0.1, 0.1});
    const auto custom = store.customRegions().at(0);
    findPeople(SensitiveRegions{face});
    EXPECT_THAT(store.regions(), ElementsAre(name, custom, face));
    EXPECT_TRUE(store.scanMessage().isEmpty());
    EXPECT_EQ(store.protectedImage().size(), QSizeF(100, 50));
    EXPECT_EQ(store.protectedImage().bitmap().pixelColor(105, 98), Qt::black);
}

TEST_F(EditorStoreTest, NeverShowsTheFindingsOfAnImageThatIsGone) {
    store.load(picture(Qt::red));
    store.load(picture(Qt::green));
    EXPECT_TRUE(text.scans[0]->isCanceled());
    text.answer(0, SensitiveRegions{region(SensitiveKind::name)});
    settle();
    EXPECT_THAT(store.regions(), IsEmpty());
    findText({region(SensitiveKind::email)});
    EXPECT_THAT(store.regions(), SizeIs(1));

    // Whoever hears of a finding may end the session then and there.
    store.load(picture(Qt::blue));
    const auto connection =
        QObject::connect(&store, &EditorStore::regionsChanged, &store, &EditorStore::clear);
    text.answer(2, SensitiveRegions{region(SensitiveKind::email)});
    waitForStage(Stage::Empty);
    QObject::disconnect(connection);
    people.answer(0, SensitiveRegions{region(SensitiveKind::person)});
    settle();
    EXPECT_EQ(store.stage(), Stage::Empty);
    EXPECT_TRUE(store.protectedImage().isNull() && store.regions().empty() && store.scanMessage().isEmpty());
    EXPECT_THAT(people.scans, SizeIs(1)) << "a scan that was cancelled does not go on";
    EXPECT_TRUE(store.errorMessage().isEmpty());
}

TEST_F(EditorStoreTest, KeepsWhatWasFoundWhenADetectorFails) {
    store.setRedactionStyle(RedactionStyle::blackout);
    store.load(picture(Qt::red));
    findText({region(SensitiveKind::name)});
    findPeople(AnalysisError{u"No eyes."_s});
    waitForError(u"Scanning failed: No eyes."_s);
    EXPECT_TRUE(store.scanMessage().isEmpty());
    EXPECT_THAT(store.regions(), SizeIs(1));
    EXPECT_EQ(corner(), Qt::black);

    store.load(QImage());
    waitForError(u"The image could not be decoded."_s);
    EXPECT_EQ(store.stage(), Stage::Ready);
    EXPECT_EQ(corner(), Qt::black);

    store.load(picture(Qt::red));
    text.scans[1]->future().cancel();
    text.scans[1]->finish();
    settle();
    EXPECT_EQ(store.stage(), Stage::Scanning);
    EXPECT_TRUE(store.errorMessage().isEmpty());
}

TEST_F(EditorStoreTest, RemovesAndRestoresDetectedAreas) {
    const auto first = region(SensitiveKind::name), second = region(SensitiveKind::email, 0.2),
               third = region(SensitiveKind::name, 0.4);
    store.setRedactionStyle(RedactionStyle::blackout);
    makeReady(Qt::red, {first, second, third});
    store.addCustomBlur({0.6, 0.6, 0.2, 0.2});
    const auto custom = store.customRegions().at(0);
    using Count = EditorStore::CategoryCount;
    EXPECT_THAT(store.categoryCounts(),
                ElementsAre(Count{SensitiveKind::custom, 1}, Count{SensitiveKind::email, 1},
                            Count{SensitiveKind::name, 2}));

    for (const auto& removed : {custom, first, third})
        store.removeDetectedRegion(removed.id());
    EXPECT_EQ(corner(), Qt::red);
    EXPECT_THAT(store.removedDetectedRegions(), ElementsAre(first, third)) << "not the custom one";
    for (int press = 0; press < 3; ++press)
        store.restoreLastRemovedRegion();
    EXPECT_THAT(store.regions(), ElementsAre(second, custom, third, first));
    EXPECT_EQ(corner(), Qt::black);
}

TEST_F(EditorStoreTest, DrawsAreasWithinTheImage) {
    store.setRedactionStyle(RedactionStyle::blackout);
    const auto found = region(SensitiveKind::name);
    makeReady(Qt::red, {found});
    store.setPreviewMode(PreviewMode::Original);
    for (const NormalizedRect& ignored :
         {NormalizedRect{0.5, 0.5, 0.004, 0.5}, NormalizedRect{0.998, 0.2, 0.5, 0.5},
          NormalizedRect{1.2, 0, 1, 1}, NormalizedRect{0.1, 0.1, std::nan(""), 0.5}})
        store.addCustomBlur(ignored);
    EXPECT_THAT(store.customRegions(), IsEmpty());
    EXPECT_EQ(store.previewMode(), PreviewMode::Original);

    store.addCustomBlur({1.5, 0.75, -1, -0.5}); // dragged from the bottom right, beyond the edge
    store.addCustomBlur({0.2, 0.2, 0.005, 0.005});
    ASSERT_THAT(store.customRegions(), SizeIs(2));
    const auto drawn = store.customRegions()[0];
    EXPECT_EQ(drawn.normalizedRect(), (NormalizedRect{0.5, 0.25, 0.5, 0.5}));
    EXPECT_EQ(store.previewMode(), PreviewMode::Protected);
    EXPECT_EQ(middle(), Qt::black);

    store.removeDetectedRegion(found.id());
    store.restoreLastRemovedRegion(); // now the last of the list
    store.undoCustomBlur();
    EXPECT_THAT(store.regions(), ElementsAre(drawn, found));
    store.clearCustomBlurs();
    store.undoCustomBlur();
    EXPECT_THAT(store.regions(), ElementsAre(found));
    EXPECT_EQ(middle(), Qt::red);
}

TEST_F(EditorStoreTest, RendersEveryChangeAtOnce) {
    const QImage image = ImageSamples::gradient({200, 100}).convertToFormat(QImage::Format_RGBA8888);
    store.load(image);
    findText({region(SensitiveKind::name)});
    for (const auto& change : std::vector<std::function<void()>>{
             [&] { store.setBlurRadius(1); }, [&] { store.setRedactionStyle(RedactionStyle::pixelate); },
             [&] { store.setBlurRadius(30); }}) {
        change();
        EXPECT_EQ(
            store.protectedImage().bitmap(),
            ScreenshotRedactor().render(image, store.regions(), store.redactionStyle(), store.blurRadius()));
    }
}

TEST_F(EditorStoreTest, GivesAwayNothingWithoutTheMemoryToHideIt) {
    makeReady(Qt::red, {region(SensitiveKind::name)});
    renderingInstead = QImage();
    store.renderPreview();
    EXPECT_EQ(store.protectedImage(), store.originalImage());
    store.copyProtectedImage();
    waitForError(u"The protected image couldn’t be copied to the clipboard."_s);
    EXPECT_TRUE(clipboard.written.isNull());
    panel.answer = file(u"unsafe.png"_s);
    store.exportProtectedImage();
    waitForError(u"The protected image couldn’t be encoded as PNG."_s);
    store.finishExports();
    EXPECT_FALSE(QFile::exists(panel.answer->toLocalFile()));
}

TEST_F(EditorStoreTest, KeepsTheChoicesAndTheErrorWhenItIsCleared) {
    store.setRedactionStyle(RedactionStyle::pixelate);
    store.setBlurRadius(30);
    makeReady(Qt::red, {region(SensitiveKind::name)});
    store.setErrorMessage(u"Something."_s);
    bool isConsistent = false;
    QObject::connect(&store, &EditorStore::stageChanged, &store,
                     [&] { isConsistent = store.originalImage().isNull() && store.regions().empty(); });
    store.clear();
    EXPECT_TRUE(isConsistent) << "for whoever hears of the first change";
    EXPECT_EQ(store.redactionStyle(), RedactionStyle::pixelate);
    EXPECT_EQ(store.blurRadius(), 30);
    waitForError(u"Something."_s);
}

TEST_F(EditorStoreTest, CopiesAndSaysSoForAWhile) {
    makeReady(Qt::red);
    clipboard.isRefusing = true;
    store.copyProtectedImage();
    waitForError(u"The protected image couldn’t be copied to the clipboard."_s);
    EXPECT_FALSE(store.didCopy());

    clipboard.isRefusing = false;
    copy();
    EXPECT_EQ(clipboard.written, store.protectedImage().bitmap());
    clock.advance(1000ms);
    copy();
    clock.advance(499ms);
    EXPECT_TRUE(store.didCopy());
    clock.advance(1ms);
    EXPECT_FALSE(store.didCopy()) << "the first copy's time is over";
}

TEST_F(EditorStoreTest, KeepsOneHistoryEntryPerImage) {
    makeReady(Qt::red, {region(SensitiveKind::name)});
    for (int press = 0; press < 5; ++press)
        store.copyProtectedImage();
    store.addCustomBlur({0, 0, 1, 1});
    store.setRedactionStyle(RedactionStyle::blackout);
    copy();
    ASSERT_THAT(history.entries(), SizeIs(1));
    EXPECT_EQ(history.entries()[0].regionCount, 2);
    EXPECT_EQ(keptColor(), Qt::black);
    const QUuid red = history.entries()[0].id;

    // A recording that ends after the next image was loaded must not become that image's.
    store.copyProtectedImage();
    makeReady(Qt::green);
    history.finishRecordings();
    copy();
    ASSERT_THAT(history.entries(), SizeIs(2));
    EXPECT_NE(history.entries()[1].id, red);

    // An export takes a while; the copy made meanwhile is the newer one.
    panel.answer = file(u"safe.png"_s);
    store.exportProtectedImage();
    store.addCustomBlur({0, 0, 1, 1});
    store.copyProtectedImage();
    store.finishExports();
    history.finishRecordings();
    EXPECT_THAT(history.entries(), SizeIs(2));
    EXPECT_EQ(history.entries()[0].regionCount, 1);

    history.setEnabled(false);
    makeReady(Qt::blue);
    copy();
    EXPECT_THAT(history.entries(), SizeIs(2));
}

TEST_F(EditorStoreTest, ExportsWhatWasOnScreen) {
    makeReady(Qt::red);
    store.exportProtectedImage(); // cancelled
    settle();
    EXPECT_TRUE(store.errorMessage().isEmpty());

    panel.answer = file(u"gone/safe.png"_s);
    store.exportProtectedImage();
    waitForError(u"Export failed: %1/safe.png: there is no folder “%1”"_s.arg(folder.filePath(u"gone"_s)));
    EXPECT_THAT(history.entries(), IsEmpty());

    panel.answer = file(u"safe.png"_s);
    panel.meanwhile = [&] { store.load(picture(Qt::green)); };
    store.exportProtectedImage();
    ASSERT_TRUE(waitUntil([&] { return history.entries().size() == 1; }));
    EXPECT_EQ(QImage(folder.filePath(u"safe.png"_s)).pixelColor(100, 50), Qt::red);
    EXPECT_EQ(keptColor(), Qt::red);
}

TEST_F(EditorStoreTest, OpensFilesAndStaysWithTheLatest) {
    const QSize quickSize(200, 100), slowSize(3000, 2000);
    const QUrl quick = file(u"quick.png"_s), slow = file(u"slow.png"_s);
    ASSERT_TRUE(picture(Qt::green).save(quick.toLocalFile()));
    ASSERT_TRUE(ImageSamples::gradient(slowSize).save(slow.toLocalFile()));
    const auto settleFiles = [&] {
        QThreadPool::globalInstance()->waitForDone();
        settle();
    };

    store.load(slow);
    EXPECT_EQ(store.stage(), Stage::Empty) << "the main thread does not decode";
    waitForSize(slowSize);
    store.load(slow);
    store.load(quick);
    waitForSize(quickSize);
    QMimeData drop;
    drop.setUrls({slow});
    EXPECT_TRUE(store.load(itemProviders(drop), [] { ADD_FAILURE() << "a later picture came before"; }));
    store.load(slow);
    store.load(ImageSamples::filled(Qt::blue, {50, 50}));
    settleFiles();
    waitForSize({50, 50});
    drop.setUrls({quick});
    EXPECT_TRUE(store.load(itemProviders(drop), {}));
    store.load(slow);
    waitForSize(slowSize);
    store.load(quick);
    store.clear();
    settleFiles();
    EXPECT_EQ(store.stage(), Stage::Empty);

    store.load(file(u"nothing.png"_s));
    waitForError(u"That file isn’t a readable image. Try a PNG, JPEG, HEIC, or TIFF."_s);
    store.load(file(u"nothing.png"_s));
    store.load(picture(Qt::blue));
    settleFiles();
    EXPECT_TRUE(store.errorMessage().isEmpty()) << "of a file that nobody waits for any more";
}

TEST_F(EditorStoreTest, TakesPicturesFromTheClipboardAndFromDrops) {
    clipboard.held->setImageData(picture(Qt::green));
    store.pasteFromClipboard();
    waitForStage(Stage::Scanning);
    EXPECT_EQ(middle(), Qt::green);

    QMimeData words, good;
    words.setText(u"just words"_s);
    good.setImageData(picture(Qt::blue));
    int loads = 0;
    const auto count = [&] { ++loads; };
    EXPECT_FALSE(store.load(itemProviders(words), count));
    EXPECT_TRUE(store.load(itemProviders(good), count));
    ASSERT_TRUE(waitUntil([&] { return loads == 1; }));
    EXPECT_EQ(middle(), Qt::blue);
}

} // namespace
} // namespace Veilshot
