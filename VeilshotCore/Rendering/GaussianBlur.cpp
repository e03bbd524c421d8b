#include "VeilshotCore/Rendering/GaussianBlur.h"

#include "VeilshotCore/Rendering/BlurredRows.h"
#include "VeilshotCore/Rendering/GaussianPlan.h"
#include "VeilshotCore/Rendering/RegionRows.h"
#include "VeilshotCore/Rendering/ShrunkRows.h"
#include "VeilshotCore/Rendering/SourceRows.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Veilshot {

namespace {

/// The four samples around a pixel along one axis, and their weights.
struct Neighbours {
    int first;
    std::array<float, 4> weights;
};

Neighbours neighboursOf(int pixel, const GaussianPlan& plan) {
    const double position = (pixel + 0.5 - plan.origin) / plan.spacing;
    const double left = std::floor(position);
    const auto t = static_cast<float>(position - left);
    const float s = 1 - t;
    // The uniform cubic B-spline's four pieces.
    return {static_cast<int>(left) - 1,
            {s * s * s / 6, (4 - 6 * t * t + 3 * t * t * t) / 6, (4 - 6 * s * s + 3 * s * s * s) / 6,
             t * t * t / 6}};
}

QRegion samplesFor(const QRegion& pixels, const GaussianPlan& plan) {
    if (plan.factors.empty())
        return pixels;
    return mapped(pixels, [&](const QRect& rect) {
        return QRect(
            QPoint(neighboursOf(rect.left(), plan).first, neighboursOf(rect.top(), plan).first),
            QPoint(neighboursOf(rect.right(), plan).first + 3, neighboursOf(rect.bottom(), plan).first + 3));
    });
}

/// The lattice after the first `count` factors.
std::unique_ptr<SampleRows> shrunkSource(const QImage& source, const std::vector<int>& factors,
                                         std::size_t count, const QRegion& needed, int rowsKept) {
    if (count == 0)
        return std::make_unique<SourceRows>(source, needed, rowsKept);
    const int factor = factors[count - 1];
    if (count == 1)
        return std::make_unique<ShrunkPixels>(source, factor, needed, rowsKept);
    QRect inputDomain = source.rect();
    for (std::size_t i = 0; i + 1 < count; ++i)
        inputDomain = ShrunkRows::shrunkDomain(inputDomain, factors[i]);
    return std::make_unique<ShrunkSamples>(
        shrunkSource(source, factors, count - 1, ShrunkRows::inputsFor(needed, inputDomain, factor), 1),
        factor, needed, rowsKept);
}

Opacity opacityOf(const SampleRows& samples) {
    return samples.opaqueSoFar() ? Opacity::opaque : Opacity::mixed;
}

void paintSamples(SampleRows& samples, const QRegion& region, PixelRows target) {
    forEachRow(region, [&](int y, std::span<const QRect> rects) {
        for (const QRect& rect : rects) {
            const float* values = samples.at(rect.left(), y);
            writePixels(values, rect.width(), opacityOf(samples), target.pixel(rect.left(), y));
        }
    });
}

void paintEnlarged(SampleRows& samples, const GaussianPlan& plan, const QRegion& region, PixelRows target) {
    const QRect bounds = region.boundingRect();
    std::vector<Neighbours> columns;
    columns.reserve(std::size_t(bounds.width()));
    for (int x = bounds.left(); x <= bounds.right(); ++x)
        columns.push_back(neighboursOf(x, plan));
    std::vector<float> rowOfSamples(4 * std::size_t(columns.back().first + 4 - columns.front().first));
    std::vector<float> rowOfPixels(4 * std::size_t(bounds.width()));

    forEachRow(region, [&](int y, std::span<const QRect> rects) {
        const auto [firstRow, rowWeights] = neighboursOf(y, plan);
        for (const QRect& rect : rects) {
            const Neighbours* column = &columns[std::size_t(rect.left() - bounds.left())];
            const int firstColumn = column->first;
            const int values = 4 * (column[rect.width() - 1].first + 4 - firstColumn);
            const std::array<const float*, 4> rows{
                samples.at(firstColumn, firstRow), samples.at(firstColumn, firstRow + 1),
                samples.at(firstColumn, firstRow + 2), samples.at(firstColumn, firstRow + 3)};
            for (int i = 0; i < values; ++i)
                rowOfSamples[i] = rowWeights[0] * rows[0][i] + rowWeights[1] * rows[1][i] +
                                  rowWeights[2] * rows[2][i] + rowWeights[3] * rows[3][i];
            for (int x = 0; x < rect.width(); ++x, ++column) {
                const float* nearby = rowOfSamples.data() + 4 * qsizetype(column->first - firstColumn);
                const std::array<float, 4>& weights = column->weights;
                for (int channel = 0; channel < 4; ++channel)
                    rowOfPixels[4 * x + channel] =
                        weights[0] * nearby[channel] + weights[1] * nearby[channel + 4] +
                        weights[2] * nearby[channel + 8] + weights[3] * nearby[channel + 12];
            }
            writePixels(rowOfPixels.data(), rect.width(), opacityOf(samples), target.pixel(rect.left(), y));
        }
    });
}

} // namespace

void paintGaussianBlur(const QImage& source, const QRegion& region, double sigma, PixelRows target) {
    if (region.isEmpty())
        return;
    // Seen from so far away the picture itself is a dot and every pixel the average of the four corners, to
    // a fraction of a grey level; an even larger sigma changes nothing but would end in infinities.
    const double largestSigma = 1024.0 * std::max(source.width(), source.height());
    const GaussianPlan plan = GaussianPlan::forSigma(std::min(sigma, largestSigma));

    QRect domain = source.rect();
    for (const int factor : plan.factors)
        domain = ShrunkRows::shrunkDomain(domain, factor);
    const QRegion needed = samplesFor(region, plan);
    std::unique_ptr<SampleRows> shrunk =
        shrunkSource(source, plan.factors, plan.factors.size(),
                     BlurredRows::inputsFor(needed, domain, plan.radius()), 2 * plan.radius() + 1);
    if (plan.factors.empty()) {
        BlurredRows blurred(std::move(shrunk), plan.kernel, needed, 1);
        paintSamples(blurred, region, target);
    } else {
        BlurredRows blurred(std::move(shrunk), plan.kernel, needed, 4);
        paintEnlarged(blurred, plan, region, target);
    }
}

} // namespace Veilshot
