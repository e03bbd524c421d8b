// For how long the editing session holds up the main thread with a picture of 5120x2880. `load` less
// `convert` of the same format is to stay below 30 ms; of the session as a whole only `render` is to grow
// with the picture.

#include "Veilshot/Features/Editor/EditorStore.h"
#include "Veilshot/Features/History/HistoryStore.h"
#include "Veilshot/Platform/Clipboard.h"
#include "Veilshot/Platform/Clock.h"
#include "Veilshot/Platform/FilePanel.h"
#include "Veilshot/Platform/ImageDecoder.h"
#include "Veilshot/Platform/PngFile.h"
#include "Veilshot/Platform/UserDefaults.h"
#include "VeilshotCore/Rendering/ScreenshotRedactor.h"
#include "benchmarks/LargeScreenshot.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <algorithm>
#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

struct FixedAnswer : FilePanel {
    QUrl url;
    std::optional<QUrl> chooseDestination(const Destination&) override { return url; }
    std::optional<QUrl> chooseImage(const QString&) override { return url; }
};

QFuture<DetectionOutcome> fortyLines(const QImage&) {
    SensitiveRegions regions;
    for (int i = 0; i < 40; ++i)
        regions.emplace_back(QUuid::createUuid(),
                             NormalizedRect{0.02 + 0.2 * (i % 5), 0.02 + 0.12 * (i / 5), 0.06, 0.016},
                             SensitiveKind::name);
    return QtFuture::makeReadyFuture(DetectionOutcome(regions));
}

/// A session over real parts but for the detectors, which answer at once.
class Session {
public:
    Session() { panel.url = QUrl::fromLocalFile(folder.filePath(u"safe.png"_s)); }

    /// Runs the event loop until the condition holds and keeps the longest time that it did not turn.
    template<typename Condition>
    void run(Condition condition) {
        do {
            QElapsedTimer timer;
            timer.start();
            QCoreApplication::processEvents();
            note(timer);
        } while (!condition());
    }
    template<typename Operation>
    void perform(Operation operation) {
        QElapsedTimer timer;
        timer.start();
        operation();
        note(timer);
    }
    bool isReady() const { return store.stage() == EditorStore::Stage::Ready; }

    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(u"defaults.conf"_s)};
    SystemClock clock;
    SystemClipboard clipboard;
    FixedAnswer panel;
    HistoryStore history{QUrl::fromLocalFile(folder.filePath(u"History"_s)), defaults, clock};
    double rendering = 0;    ///< ms, the longest render
    double longestPause = 0; ///< ms, the longest time without a turn of the event loop, less its renders
    EditorStore store{&history,
                      {.detectText = fortyLines,
                       .detectPeople = fortyLines,
                       .render =
                           [this](const QImage& bitmap, const SensitiveRegions& regions, RedactionStyle style,
                                  double intensity) {
                               QElapsedTimer timer;
                               timer.start();
                               QImage rendered =
                                   ScreenshotRedactor().render(bitmap, regions, style, intensity);
                               const double elapsed = double(timer.nsecsElapsed()) / 1e6;
                               rendering = std::max(rendering, elapsed);
                               m_renderedInTurn += elapsed;
                               return rendered;
                           },
                       .clipboard = clipboard,
                       .filePanel = panel,
                       .clock = clock}};

private:
    void note(const QElapsedTimer& timer) {
        const double elapsed = double(timer.nsecsElapsed()) / 1e6 - std::exchange(m_renderedInTurn, 0.0);
        longestPause = std::max(longestPause, elapsed);
    }

    double m_renderedInTurn = 0;
};

void load(benchmark::State& state, QImage::Format format) {
    const QImage image = largeScreenshot().convertToFormat(format);
    Session session;
    for (auto _ : state)
        session.store.load(image);
}

void convert(benchmark::State& state, QImage::Format format) {
    const QImage image = largeScreenshot().convertToFormat(format);
    for (auto _ : state)
        benchmark::DoNotOptimize(ImageDecoder::toBitmap(image).constBits());
}

void copy(benchmark::State& state) {
    Session session;
    session.history.setEnabled(false);
    session.store.load(largeScreenshot());
    session.run([&] { return session.isReady(); });
    for (auto _ : state)
        session.store.copyProtectedImage();
}

/// A file opened, scanned, copied, recorded, exported, recorded again, what was copied pasted, and all closed.
void wholeSession(benchmark::State& state) {
    Session session;
    const QUrl file = QUrl::fromLocalFile(session.folder.filePath(u"shot.png"_s));
    largeScreenshot().save(file.toLocalFile());
    for (auto _ : state) {
        session.perform([&] { session.store.load(file); });
        session.run([&] { return session.isReady(); });
        const auto isRecorded = [&, before = session.history.entries()] {
            return session.history.entries() != before;
        };
        session.perform([&] { session.store.copyProtectedImage(); });
        session.run(isRecorded);
        const auto isRecordedAgain = [&, before = session.history.entries()] {
            return session.history.entries() != before;
        };
        session.perform([&] { session.store.exportProtectedImage(); });
        session.run(isRecordedAgain);
        session.perform([&] { session.store.pasteFromClipboard(); });
        session.run([&] { return !session.isReady(); });
        session.run([&] { return session.isReady(); });
        session.perform([&] { session.store.clear(); });
    }
    state.counters["longest_pause_ms"] = session.longestPause;
    state.counters["longest_render_ms"] = session.rendering;
}

BENCHMARK_CAPTURE(convert, rgba, QImage::Format_RGBA8888)
    ->Name("session/convert/RGBA8888")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, rgba, QImage::Format_RGBA8888)
    ->Name("session/load/RGBA8888")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(convert, rgb, QImage::Format_RGB32)
    ->Name("session/convert/RGB32")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, rgb, QImage::Format_RGB32)->Name("session/load/RGB32")->Unit(benchmark::kMillisecond);
BENCHMARK(copy)->Name("session/copy")->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(wholeSession)->Name("session/whole")->Unit(benchmark::kMillisecond);

} // namespace
} // namespace Veilshot
