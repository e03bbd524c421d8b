// How long a render takes on one thread, beside OpenCV's Gaussian blur and a plain copy of the same picture.
// Compare figures of one run only, and medians: --benchmark_repetitions=9 --benchmark_report_aggregates_only

#include "VeilshotCore/Rendering/ScreenshotRedactor.h"
#include "benchmarks/LargeScreenshot.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <opencv2/imgproc.hpp>
#include <vector>

namespace Veilshot {
namespace {

constexpr QSize screen = largeScreenshotSize;

/// Forty details of the size of a line of text, spread over the whole picture.
std::vector<QRect> details() {
    std::vector<QRect> rects;
    for (int i = 0; i < 40; ++i)
        rects.emplace_back(90 + (i % 5) * 1000 + (i * 37) % 190, 70 + (i / 5) * 350 + (i * 53) % 120, 300,
                           45);
    return rects;
}

SensitiveRegions regions() {
    SensitiveRegions result;
    for (const QRect& rect : details())
        result.emplace_back(QUuid::createUuid(), NormalizedRect::fromPixels(QRectF(rect), screen),
                            SensitiveKind::name);
    return result;
}

/// A slider being dragged: the result on screen is held until the next one is there.
void dragSlider(benchmark::State& state, RedactionStyle style, double intensity) {
    const SensitiveRegions hidden = regions();
    const ScreenshotRedactor redactor;
    QImage shown = redactor.render(largeScreenshot(), hidden, style, intensity);
    shown = redactor.render(largeScreenshot(), hidden, style, intensity);
    for (auto _ : state) {
        shown = redactor.render(largeScreenshot(), hidden, style, intensity);
        benchmark::DoNotOptimize(shown.constBits());
    }
}

/// A new picture of the same size: memory is there, but nothing in it is of use.
void openPicture(benchmark::State& state, RedactionStyle style, double intensity) {
    const SensitiveRegions hidden = regions();
    const ScreenshotRedactor redactor;
    QImage opened = largeScreenshot();
    QImage shown = redactor.render(opened, hidden, style, intensity);
    for (auto _ : state) {
        state.PauseTiming();
        opened.setPixel(0, 0, opened.pixel(0, 0)); // a new cacheKey()
        state.ResumeTiming();
        shown = redactor.render(opened, hidden, style, intensity);
        benchmark::DoNotOptimize(shown.constBits());
    }
}

cv::Mat matrixOf(const QImage& image) {
    return {image.height(), image.width(), CV_8UC4, const_cast<uchar*>(image.constBits()),
            static_cast<std::size_t>(image.bytesPerLine())};
}

/// Each area with the halo that its blur needs, the rest of the picture as it is.
void blurAreasWithOpenCv(benchmark::State& state, double sigma) {
    cv::setNumThreads(1);
    const cv::Mat source = matrixOf(largeScreenshot());
    cv::Mat target = source.clone();
    const int halo = static_cast<int>(3 * sigma);
    cv::Mat blurred;
    for (auto _ : state) {
        for (const QRect& rect : details()) {
            const QRect around =
                rect.adjusted(-halo, -halo, halo, halo).intersected(QRect(QPoint(0, 0), screen));
            cv::GaussianBlur(source(cv::Rect(around.x(), around.y(), around.width(), around.height())),
                             blurred, {}, sigma, sigma, cv::BORDER_REPLICATE);
            const cv::Rect inner(rect.x() - around.x(), rect.y() - around.y(), rect.width(), rect.height());
            blurred(inner).copyTo(target(cv::Rect(rect.x(), rect.y(), rect.width(), rect.height())));
        }
        benchmark::DoNotOptimize(target.data);
    }
}

void blurPictureWithOpenCv(benchmark::State& state, double sigma) {
    cv::setNumThreads(1);
    const cv::Mat source = matrixOf(largeScreenshot());
    cv::Mat target = source.clone();
    for (auto _ : state) {
        cv::GaussianBlur(source, target, {}, sigma, sigma, cv::BORDER_REPLICATE);
        benchmark::DoNotOptimize(target.data);
    }
}

/// Into memory that was written before: fresh memory costs several times as much.
void copyPicture(benchmark::State& state) {
    const QImage& source = largeScreenshot();
    std::vector<uchar> target(static_cast<std::size_t>(source.sizeInBytes()), 1);
    for (auto _ : state) {
        std::memcpy(target.data(), source.constBits(), target.size());
        benchmark::DoNotOptimize(target.data());
        benchmark::ClobberMemory();
    }
}

BENCHMARK_CAPTURE(dragSlider, 8, RedactionStyle::smooth, 8)
    ->Name("render/smooth/8")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragSlider, 18, RedactionStyle::smooth, 18)
    ->Name("render/smooth/18")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragSlider, 36, RedactionStyle::smooth, 36)
    ->Name("render/smooth/36")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragSlider, 18, RedactionStyle::pixelate, 18)
    ->Name("render/pixelate/18")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dragSlider, 0, RedactionStyle::blackout, 0)
    ->Name("render/blackout")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(openPicture, 18, RedactionStyle::smooth, 18)
    ->Name("render/first/smooth/18")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(blurAreasWithOpenCv, 36, 36)->Name("opencv/area/36")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(blurPictureWithOpenCv, 36, 36)->Name("opencv/whole/36")->Unit(benchmark::kMillisecond);
BENCHMARK(copyPicture)->Name("copy")->Unit(benchmark::kMillisecond);

} // namespace
} // namespace Veilshot
