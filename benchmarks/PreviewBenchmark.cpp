// A drag of the intensity slider over a picture of 5120x2880 with 40 areas, in a window of 1200x800. Each
// step should be on screen within two frames of a display (33 ms), without a GPU.
//
// Without a display the window is drawn in memory, by the processor. On a display, for example under
//     QT_QPA_PLATFORM=xcb xvfb-run -s "-screen 0 1280x1024x24" build/benchmark/benchmarks/veilshot_benchmarks
// it is drawn with OpenGL, or again by the processor with QT_QUICK_BACKEND=software.

#include "Veilshot/DesignSystem/Theme.h"
#include "Veilshot/Features/Editor/EditorStore.h"
#include "Veilshot/Features/Editor/FittedBitmap.h"
#include "Veilshot/Platform/Clipboard.h"
#include "Veilshot/Platform/Clock.h"
#include "Veilshot/Platform/FilePanel.h"
#include "VeilshotCore/Rendering/ScreenshotRedactor.h"
#include "benchmarks/LargeScreenshot.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QQuickWindow>
#include <algorithm>
#include <atomic>
#include <benchmark/benchmark.h>

Q_IMPORT_QML_PLUGIN(Veilshot_DesignSystemPlugin)
Q_IMPORT_QML_PLUGIN(Veilshot_FeaturesPlugin)

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

struct NoPanel : FilePanel {
    std::optional<QUrl> chooseDestination(const Destination&) override { return {}; }
    std::optional<QUrl> chooseImage(const QString&) override { return {}; }
};

QFuture<DetectionOutcome> answer(const SensitiveRegions& regions) {
    return QtFuture::makeReadyFuture(DetectionOutcome(regions));
}

SensitiveRegions fortyLines() {
    SensitiveRegions regions;
    for (int i = 0; i < 40; ++i)
        regions.emplace_back(QUuid::createUuid(),
                             NormalizedRect{0.02 + 0.2 * (i % 5), 0.02 + 0.12 * (i / 5), 0.06, 0.016},
                             SensitiveKind::name);
    return regions;
}

/// The preview in a window of its own, showing the large screenshot.
class PreviewWindow {
public:
    PreviewWindow() {
        if (QGuiApplication::platformName() == u"offscreen"_s)
            QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        m_engine.addImportPath(u"qrc:/qt/qml"_s);
        QQmlComponent component(&m_engine,
                                QUrl(u"qrc:/qt/qml/Veilshot/Features/Editor/InteractiveImagePreview.qml"_s));
        m_preview.reset(qobject_cast<QQuickItem*>(
            component.createWithInitialProperties({{u"store"_s, QVariant::fromValue(&store)}})));
        if (!m_preview)
            return;
        m_window.resize(1200, 800);
        m_preview->setParentItem(m_window.contentItem());
        m_preview->setSize(QSizeF(1120, 680));
        m_preview->setPosition(QPointF(40, 60));
        // Comes from the thread that draws.
        QObject::connect(
            &m_window, &QQuickWindow::frameSwapped, &m_window, [this] { ++m_frames; }, Qt::DirectConnection);
        m_window.show();
        store.load(largeScreenshot());
        while (store.stage() != EditorStore::Stage::Ready)
            QCoreApplication::processEvents();
        // What is found is shown for a moment; the drag begins after that.
        QElapsedTimer timer;
        timer.start();
        while (!timer.hasExpired(2500))
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    }

    bool isComplete() const { return m_preview != nullptr; }
    /// Until a frame that was asked for before is on screen.
    void awaitFrame() {
        const int before = m_frames;
        while (m_frames == before)
            QCoreApplication::processEvents();
    }

private:
    NoPanel m_panel;
    SystemClipboard m_clipboard;
    SystemClock m_clock;
    Theme m_theme{nullptr};
    QQmlEngine m_engine;

public:
    EditorStore store{
        nullptr,
        {.detectText = [](const QImage&) { return answer(fortyLines()); },
         .detectPeople = [](const QImage&) { return answer({}); },
         .render =
             [](const QImage& bitmap, const SensitiveRegions& regions, RedactionStyle style,
                double intensity) { return ScreenshotRedactor().render(bitmap, regions, style, intensity); },
         .clipboard = m_clipboard,
         .filePanel = m_panel,
         .clock = m_clock}};

private:
    std::atomic<int> m_frames = 0;
    QQuickWindow m_window;
    std::unique_ptr<QQuickItem> m_preview;
};

/// In ms: the value that so many of a hundred do not exceed.
double percentile(std::vector<double>& durations, double percent) {
    std::ranges::sort(durations);
    return durations[size_t(percent / 100 * double(durations.size() - 1))];
}

void dragSlider(benchmark::State& state) {
    PreviewWindow window;
    if (!window.isComplete()) {
        state.SkipWithError("the preview could not be loaded");
        return;
    }
    std::vector<double> settings, frames;
    for (auto _ : state) {
        for (int step = 0; step < 60; ++step) {
            QElapsedTimer timer;
            timer.start();
            window.store.setBlurRadius(8 + 28 * (step + 1) / 60.0);
            settings.push_back(double(timer.nsecsElapsed()) / 1e6);
            window.awaitFrame();
            frames.push_back(double(timer.nsecsElapsed()) / 1e6);
        }
    }
    state.counters["set_median_ms"] = percentile(settings, 50);
    state.counters["set_p95_ms"] = percentile(settings, 95);
    state.counters["swapped_median_ms"] = percentile(frames, 50);
    state.counters["swapped_p95_ms"] = percentile(frames, 95);
}

/// What a change of the window's size costs on the main thread.
void fit(benchmark::State& state, QSize size) {
    int width = size.width();
    FittedBitmap bitmap;
    for (auto _ : state) {
        width ^= 1;
        bitmap.show(largeScreenshot(), 1, {}, {width, size.height()}, 8);
    }
}

BENCHMARK(dragSlider)
    ->Name("preview/drag_slider")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(3);
BENCHMARK_CAPTURE(fit, small, QSize(1000, 562))->Name("preview/fit/1000x562")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(fit, large, QSize(3000, 1688))
    ->Name("preview/fit/3000x1688")
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace Veilshot
