#include "Veilshot/Features/Editor/EditorStore.h"

#include "Veilshot/Features/History/HistoryStore.h"
#include "Veilshot/Platform/Clipboard.h"
#include "Veilshot/Platform/ImageDecoder.h"
#include "Veilshot/Platform/UserDefaults.h"
#include "VeilshotCore/Rendering/ScreenshotRedactor.h"
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

QImage picture(QColor color, QSize size = {200, 100}) {
    QImage image(size, QImage::Format_RGBA8888);
    image.fill(color);
    return image;
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

    /// Loads and scans an image; `found` is its text.
    void makeReady(QColor color, const SensitiveRegions& found = {}) {
        store.load(picture(color));
        text.answer(text.scans.size() - 1, found);
        ASSERT_TRUE(waitUntil([&] { return people.scans.size() == text.scans.size(); }));
        people.answer(people.scans.size() - 1, SensitiveRegions());
        ASSERT_TRUE(waitUntil([&] { return store.stage() == Stage::Ready; }));
    }
    void settle() {
        for (int turn = 0; turn < 5; ++turn)
            QCoreApplication::processEvents();
    }
    /// The colour of the protected image in the bottom left corner, where `region()` lies, and elsewhere.
    QColor corner() const { return store.protectedImage().bitmap().pixelColor(1, 98); }
    QColor middle() const { return store.protectedImage().bitmap().pixelColor(100, 50); }
    QString file(const QString& name, const QImage& image) const {
        EXPECT_TRUE(image.save(folder.filePath(name)));
        return folder.filePath(name);
    }
};

TEST_F(EditorStoreTest, ShowsTheTextFoundWhilePeopleAreStillSought) {
    store.setRedactionStyle(RedactionStyle::blackout);
    QImage image = picture(Qt::red);
    image.setDevicePixelRatio(2);
    store.load(image);
    EXPECT_EQ(store.stage(), Stage::Scanning);
    EXPECT_EQ(store.scanMessage(), u"Finding personal details…"_s);
    EXPECT_EQ(store.originalImage().size(), QSizeF(100, 50));
    EXPECT_EQ(store.originalImage().bitmap().size(), QSize(200, 100));
    EXPECT_EQ(store.protectedImage(), store.originalImage());
    store.copyProtectedImage();
    EXPECT_TRUE(clipboard.written.isNull()) << "nothing is hidden yet";

    const auto name = region(SensitiveKind::name), face = region(SensitiveKind::person, 0.5);
    text.answer(0, SensitiveRegions{name});
    ASSERT_TRUE(waitUntil([&] { return store.scanMessage() == u"Finding people…"_s; }));
    EXPECT_EQ(store.stage(), Stage::Scanning);
    EXPECT_EQ(corner(), Qt::black);
    EXPECT_EQ(middle(), Qt::red);

    store.addCustomBlur({0.2, 0.2, 0.1, 0.1});
    const auto custom = store.customRegions().at(0);
    people.answer(0, SensitiveRegions{face});
    ASSERT_TRUE(waitUntil([&] { return store.stage() == Stage::Ready; }));
    EXPECT_THAT(store.regions(), ElementsAre(name, custom, face));
    EXPECT_THAT(store.detectedRegions(), ElementsAre(name, face));
    EXPECT_TRUE(store.scanMessage().isEmpty());
    EXPECT_EQ(store.protectedImage().size(), QSizeF(100, 50));
    EXPECT_EQ(store.protectedImage().bitmap().pixelColor(105, 98), Qt::black);
}

TEST_F(EditorStoreTest, NeverShowsTheFindingsOfAnImageThatIsGone) {
    store.load(picture(Qt::red)); // its text is never answered for
    store.load(picture(Qt::green));
    EXPECT_TRUE(text.scans[0]->isCanceled());
    text.answer(0, SensitiveRegions{region(SensitiveKind::name)});
    settle();
    EXPECT_THAT(store.regions(), IsEmpty());
    EXPECT_EQ(store.scanMessage(), u"Finding personal details…"_s);

    text.answer(1, SensitiveRegions{region(SensitiveKind::email)});
    ASSERT_TRUE(waitUntil([&] { return people.scans.size() == 1; }));
    EXPECT_THAT(store.regions(), SizeIs(1));
    // Whoever hears of a finding may end the session then and there.
    store.load(picture(Qt::blue));
    const auto connection =
        QObject::connect(&store, &EditorStore::regionsChanged, &store, &EditorStore::clear);
    text.answer(2, SensitiveRegions{region(SensitiveKind::email)});
    ASSERT_TRUE(waitUntil([&] { return store.stage() == Stage::Empty; }));
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
    text.answer(0, SensitiveRegions{region(SensitiveKind::name)});
    ASSERT_TRUE(waitUntil([&] { return people.scans.size() == 1; }));
    people.answer(0, AnalysisError{u"No eyes."_s});
    ASSERT_TRUE(waitUntil([&] { return store.stage() == Stage::Ready; }));
    EXPECT_EQ(store.errorMessage(), u"Scanning failed: No eyes."_s);
    EXPECT_TRUE(store.scanMessage().isEmpty());
    EXPECT_THAT(store.regions(), SizeIs(1));
    EXPECT_EQ(corner(), Qt::black);

    store.load(QImage());
    EXPECT_EQ(store.errorMessage(), u"The image could not be decoded."_s);
    EXPECT_EQ(store.stage(), Stage::Ready);
    EXPECT_EQ(corner(), Qt::black);

    store.load(picture(Qt::red));
    text.answer(1, AnalysisError{u"No glasses."_s});
    ASSERT_TRUE(waitUntil([&] { return store.stage() == Stage::Ready; }));
    EXPECT_EQ(store.errorMessage(), u"Scanning failed: No glasses."_s);
    EXPECT_THAT(people.scans, SizeIs(1));

    store.setErrorMessage({});
    store.load(picture(Qt::red));
    text.scans[2]->future().cancel();
    text.scans[2]->finish();
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

    store.removeDetectedRegion(custom.id());
    EXPECT_THAT(store.regions(), SizeIs(4));
    store.removeDetectedRegion(first.id());
    EXPECT_EQ(corner(), Qt::red);
    store.removeDetectedRegion(third.id());
    EXPECT_THAT(store.removedDetectedRegions(), ElementsAre(first, third));
    store.restoreLastRemovedRegion();
    store.restoreLastRemovedRegion();
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

    store.setAddingCustomBlur(true);
    store.addCustomBlur({1.5, 0.75, -1, -0.5}); // dragged from the bottom right, beyond the edge
    store.addCustomBlur({0.2, 0.2, 0.005, 0.005});
    ASSERT_THAT(store.customRegions(), SizeIs(2));
    EXPECT_EQ(store.customRegions()[0].normalizedRect(), (NormalizedRect{0.5, 0.25, 0.5, 0.5}));
    EXPECT_EQ(store.previewMode(), PreviewMode::Protected);
    EXPECT_TRUE(store.isAddingCustomBlur());
    EXPECT_EQ(middle(), Qt::black);

    store.removeDetectedRegion(found.id());
    store.restoreLastRemovedRegion(); // now the last of the list
    store.undoCustomBlur();
    EXPECT_THAT(store.customRegions(), SizeIs(1));
    store.clearCustomBlurs();
    EXPECT_THAT(store.regions(), ElementsAre(found));
    EXPECT_EQ(middle(), Qt::red);
    store.undoCustomBlur();
    EXPECT_THAT(store.regions(), ElementsAre(found));
}

TEST_F(EditorStoreTest, RendersAtOnceAndAnnouncesAConsistentState) {
    const QImage striped = [] {
        QImage image = picture(Qt::white);
        for (int x = 0; x < image.width(); x += 2)
            for (int y = 0; y < image.height(); ++y)
                image.setPixelColor(x, y, Qt::black);
        return image;
    }();
    store.load(striped);
    text.answer(0, SensitiveRegions{region(SensitiveKind::name)});
    ASSERT_TRUE(waitUntil([&] { return people.scans.size() == 1; }));
    for (const auto& change : std::vector<std::function<void()>>{
             [&] { store.setBlurRadius(1); }, [&] { store.setRedactionStyle(RedactionStyle::pixelate); },
             [&] { store.setBlurRadius(30); }, [&] { store.renderPreview(); }}) {
        change();
        EXPECT_EQ(store.protectedImage().bitmap(),
                  ScreenshotRedactor().render(striped, store.regions(), store.redactionStyle(),
                                              store.blurRadius()));
    }

    // Without the memory to hide anything the image is shown, but goes nowhere.
    people.answer(0, SensitiveRegions());
    ASSERT_TRUE(waitUntil([&] { return store.stage() == Stage::Ready; }));
    renderingInstead = QImage();
    store.renderPreview();
    EXPECT_EQ(store.protectedImage(), store.originalImage());
    store.copyProtectedImage();
    EXPECT_EQ(store.errorMessage(), u"The protected image couldn’t be copied to the clipboard."_s);
    EXPECT_TRUE(clipboard.written.isNull());
    panel.answer = QUrl::fromLocalFile(folder.filePath(u"unsafe.png"_s));
    store.exportProtectedImage();
    EXPECT_EQ(store.errorMessage(), u"The protected image couldn’t be encoded as PNG."_s);
    store.finishExports();
    EXPECT_FALSE(QFile::exists(panel.answer->toLocalFile()));

    bool hasChecked = false;
    QObject::connect(&store, &EditorStore::stageChanged, &store, [&] {
        hasChecked = true;
        EXPECT_EQ(store.originalImage().isNull(), store.stage() == Stage::Empty);
        EXPECT_THAT(store.regions(), IsEmpty());
    });
    store.setErrorMessage(u"Something."_s);
    store.setPreviewMode(PreviewMode::Original);
    store.clear();
    EXPECT_TRUE(hasChecked);
    EXPECT_EQ(store.redactionStyle(), RedactionStyle::pixelate);
    EXPECT_EQ(store.blurRadius(), 30);
    EXPECT_EQ(store.errorMessage(), u"Something."_s);
    EXPECT_EQ(store.previewMode(), PreviewMode::Original);
}

TEST_F(EditorStoreTest, CopiesAndSaysSoForAWhile) {
    makeReady(Qt::red);
    clipboard.isRefusing = true;
    store.copyProtectedImage();
    EXPECT_EQ(store.errorMessage(), u"The protected image couldn’t be copied to the clipboard."_s);
    EXPECT_FALSE(store.didCopy());

    clipboard.isRefusing = false;
    store.copyProtectedImage();
    EXPECT_EQ(clipboard.written, store.protectedImage().bitmap());
    EXPECT_TRUE(store.didCopy());
    clock.advance(1000ms);
    store.copyProtectedImage();
    clock.advance(499ms);
    EXPECT_TRUE(store.didCopy());
    clock.advance(1ms);
    EXPECT_FALSE(store.didCopy()) << "the first copy's time is over";
    history.finishRecordings();
}

TEST_F(EditorStoreTest, KeepsOneHistoryEntryPerImage) {
    makeReady(Qt::red, {region(SensitiveKind::name)});
    for (int press = 0; press < 5; ++press)
        store.copyProtectedImage();
    history.finishRecordings();
    ASSERT_THAT(history.entries(), SizeIs(1));
    store.addCustomBlur({0, 0, 1, 1});
    store.setRedactionStyle(RedactionStyle::blackout);
    store.copyProtectedImage();
    history.finishRecordings();
    ASSERT_THAT(history.entries(), SizeIs(1));
    EXPECT_EQ(history.entries()[0].regionCount, 2);
    EXPECT_EQ(QImage(history.imageURL(history.entries()[0]).toLocalFile()).pixelColor(100, 50), Qt::black);
    const QUuid red = history.entries()[0].id;

    // A recording that ends after the next image was loaded must not become that image's.
    store.copyProtectedImage();
    makeReady(Qt::green);
    history.finishRecordings();
    store.copyProtectedImage();
    history.finishRecordings();
    ASSERT_THAT(history.entries(), SizeIs(2));
    EXPECT_NE(history.entries()[1].id, red);

    // An export takes a while; the copy made meanwhile is the newer one.
    panel.answer = QUrl::fromLocalFile(folder.filePath(u"safe.png"_s));
    store.exportProtectedImage();
    store.addCustomBlur({0, 0, 1, 1});
    store.copyProtectedImage();
    store.finishExports();
    history.finishRecordings();
    EXPECT_THAT(history.entries(), SizeIs(2));
    EXPECT_EQ(history.entries()[0].regionCount, 1);

    history.setEnabled(false);
    makeReady(Qt::blue);
    store.copyProtectedImage();
    history.finishRecordings();
    EXPECT_THAT(history.entries(), SizeIs(2));
}

TEST_F(EditorStoreTest, ExportsWhatWasOnScreen) {
    makeReady(Qt::red);
    store.exportProtectedImage(); // cancelled
    settle();
    EXPECT_TRUE(store.errorMessage().isEmpty());

    const QString missing = folder.filePath(u"gone/safe.png"_s);
    panel.answer = QUrl::fromLocalFile(missing);
    store.exportProtectedImage();
    ASSERT_TRUE(waitUntil([&] { return !store.errorMessage().isEmpty(); }));
    EXPECT_EQ(store.errorMessage(),
              u"Export failed: %1: there is no folder “%2”"_s.arg(missing, folder.filePath(u"gone"_s)));
    EXPECT_THAT(history.entries(), IsEmpty());

    const QString path = folder.filePath(u"safe.png"_s);
    panel.answer = QUrl::fromLocalFile(path);
    panel.meanwhile = [&] { store.load(picture(Qt::green)); };
    store.exportProtectedImage();
    ASSERT_TRUE(waitUntil([&] { return history.entries().size() == 1; }));
    EXPECT_EQ(QImage(path).pixelColor(100, 50), Qt::red);
    EXPECT_EQ(QImage(history.imageURL(history.entries()[0]).toLocalFile()).pixelColor(100, 50), Qt::red);
}

TEST_F(EditorStoreTest, OpensFilesAndStaysWithTheLatest) {
    QImage noise(3000, 2000, QImage::Format_RGBA8888);
    for (int y = 0; y < noise.height(); ++y)
        std::generate_n(noise.scanLine(y), noise.bytesPerLine(), [] { return uchar(std::rand() | 1); });
    const QUrl slow = QUrl::fromLocalFile(file(u"slow.png"_s, noise));
    const QUrl quick = QUrl::fromLocalFile(file(u"quick.png"_s, picture(Qt::green)));
    const auto shown = [&] { return store.originalImage().bitmap().size(); };

    store.load(slow);
    EXPECT_EQ(store.stage(), Stage::Empty) << "the main thread does not decode";
    ASSERT_TRUE(waitUntil([&] { return shown() == noise.size(); }));
    store.load(slow);
    store.load(quick);
    ASSERT_TRUE(waitUntil([&] { return shown() == QSize(200, 100); }));
    QMimeData drop;
    drop.setUrls({slow});
    EXPECT_TRUE(store.load(itemProviders(drop), [] { ADD_FAILURE() << "a later picture came before"; }));
    store.load(quick);
    store.load(slow);
    store.load(picture(Qt::blue, {50, 50}));
    QThreadPool::globalInstance()->waitForDone();
    settle();
    EXPECT_EQ(shown(), QSize(50, 50));
    drop.setUrls({quick});
    EXPECT_TRUE(store.load(itemProviders(drop), {}));
    store.load(slow);
    ASSERT_TRUE(waitUntil([&] { return shown() == noise.size(); }));
    store.load(slow);
    store.clear();
    QThreadPool::globalInstance()->waitForDone();
    settle();
    EXPECT_EQ(store.stage(), Stage::Empty);

    store.load(QUrl::fromLocalFile(folder.filePath(u"nothing.png"_s)));
    ASSERT_TRUE(waitUntil([&] { return !store.errorMessage().isEmpty(); }));
    EXPECT_EQ(store.errorMessage(), u"That file isn’t a readable image. Try a PNG, JPEG, HEIC, or TIFF."_s);
}

TEST_F(EditorStoreTest, TakesPicturesFromTheClipboardAndFromDrops) {
    clipboard.held->setText(u"just words"_s);
    store.pasteFromClipboard();
    ASSERT_TRUE(waitUntil([&] { return !store.errorMessage().isEmpty(); }));
    EXPECT_EQ(store.errorMessage(),
              u"The clipboard doesn’t contain an image. Copy a screenshot first, then try again."_s);
    clipboard.held->setImageData(picture(Qt::green));
    store.pasteFromClipboard();
    ASSERT_TRUE(waitUntil([&] { return store.stage() == Stage::Scanning; }));
    EXPECT_EQ(middle(), Qt::green);

    int loads = 0;
    const auto drop = [&](const QMimeData& data) {
        return store.load(itemProviders(data), [&] { ++loads; });
    };
    QMimeData words, damaged, good;
    words.setText(u"just words"_s);
    damaged.setData(u"image/png"_s, "no picture");
    good.setImageData(picture(Qt::blue));
    EXPECT_FALSE(drop(words));
    store.setErrorMessage({});
    EXPECT_TRUE(drop(damaged));
    ASSERT_TRUE(waitUntil([&] { return !store.errorMessage().isEmpty(); }));
    EXPECT_EQ(store.errorMessage(), u"The dropped item isn’t a readable image."_s);
    EXPECT_EQ(loads, 0);
    EXPECT_TRUE(drop(good));
    ASSERT_TRUE(waitUntil([&] { return loads == 1; }));
    EXPECT_EQ(middle(), Qt::blue);
}

} // namespace
} // namespace Veilshot
