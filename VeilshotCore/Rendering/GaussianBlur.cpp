#include "VeilshotCore/Rendering/GaussianBlur.h"

#include "VeilshotCore/Rendering/BlurredRows.h"
#include "VeilshotCore/Rendering/GaussianPlan.h"
#include "VeilshotCore/Rendering/InnerLoops.h"
#include "VeilshotCore/Rendering/RegionRows.h"
#include "VeilshotCore/Rendering/ShrunkRows.h"
#include "VeilshotCore/Rendering/ShrunkSource.h"
#include "VeilshotCore/Rendering/SourceRows.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Veilshot {

namespace {

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
    return mapped(pixels, [&](const QRect& rect) {
        const QPoint topLeft(neighboursOf(rect.left(), plan).first, neighboursOf(rect.top(), plan).first);
        const QPoint bottomRight(neighboursOf(rect.right(), plan).first,
                                 neighboursOf(rect.bottom(), plan).first);
        return QRect(topLeft, bottomRight + QPoint(3, 3));
    });
}

/// What the lattices are made from.
struct Source {
    const QImage& pixels;
    /// What is not opaque has to be weighted by alpha, in floats. Opaque pixels are summed up as bytes,
    /// several times as fast.
    Opacity opacity;
    /// Only if opaque: where the first shrinking is kept, if it is.
    ShrunkSource* shrunk = nullptr;
};

/// The lattice after the first `count` factors.
std::unique_ptr<SampleRows> shrunkSource(const Source& source, const std::vector<int>& factors,
                                         std::size_t count, const QRegion& needed, int rowsKept) {
    if (count == 0)
        return std::make_unique<SourceRows>(source.pixels, needed, rowsKept);
    const int factor = factors[count - 1];
    if (count == 1 && source.shrunk)
        return source.shrunk->samples(source.pixels, needed);
    if (count == 1 && source.opacity == Opacity::opaque)
        return std::make_unique<ShrunkPixels>(source.pixels, factor, needed, rowsKept);
    QRect inputDomain = source.pixels.rect();
    for (std::size_t i = 0; i + 1 < count; ++i)
        inputDomain = shrunkDomain(inputDomain, factors[i]);
    auto input =
        shrunkSource(source, factors, count - 1, inputsOfShrunk(needed, inputDomain, factor), factor);
    return std::make_unique<ShrunkSamples>(std::move(input), factor, needed, rowsKept);
}

std::unique_ptr<SampleRows> blurredSource(const Source& source, const GaussianPlan& plan,
                                          const QRegion& needed, int rowsKept) {
    QRect domain = source.pixels.rect();
    for (const int factor : plan.factors)
        domain = shrunkDomain(domain, factor);
    auto shrunk = shrunkSource(source, plan.factors, plan.factors.size(),
                               BlurredRows::inputsFor(needed, domain, plan.radius()), 2 * plan.radius() + 1);
    return std::make_unique<BlurredRows>(std::move(shrunk), plan.kernel, needed, rowsKept);
}

void paintAtFullSize(const QImage& source, const GaussianPlan& plan, const QRegion& region,
                     PixelRows target) {
    const auto samples = blurredSource({source, Opacity::mixed}, plan, region, 1);
    forEachRow(region, [&](int y, std::span<const QRect> rects) {
        for (const QRect& rect : rects)
            writePixels(samples->at(rect.left(), y), rect.width(), Opacity::mixed,
                        target.pixel(rect.left(), y));
    });
}

enum class Outcome { painted, sourceIsNotOpaque };

Outcome paintEnlarged(const Source& source, const GaussianPlan& plan, const QRegion& region,
                      PixelRows target) {
    const auto samples = blurredSource(source, plan, samplesFor(region, plan), 4);
    const QRect bounds = region.boundingRect();
    std::vector<Neighbours> columns;
    columns.reserve(std::size_t(bounds.width()));
    for (int x = bounds.left(); x <= bounds.right(); ++x)
        columns.push_back(neighboursOf(x, plan));
    std::vector<float> rowOfSamples(4 * std::size_t(columns.back().first + 4 - columns.front().first));
    std::vector<float> rowOfPixels(4 * std::size_t(bounds.width()));

    forEachRow(region, [&](int y, std::span<const QRect> rects) {
        if (!samples->isValid())
            return;
        const auto [firstRow, rowWeights] = neighboursOf(y, plan);
        for (const QRect& rect : rects) {
            const Neighbours* column = &columns[std::size_t(rect.left() - bounds.left())];
            const int firstColumn = column->first;
            const int values = 4 * (column[rect.width() - 1].first + 4 - firstColumn);
            const std::array<const float*, 4> rows{
                samples->at(firstColumn, firstRow), samples->at(firstColumn, firstRow + 1),
                samples->at(firstColumn, firstRow + 2), samples->at(firstColumn, firstRow + 3)};
            blendFourRows(rows, rowWeights, values, rowOfSamples.data());
            blendNeighbours(rowOfSamples.data(), firstColumn, column, rect.width(), rowOfPixels.data());
            writePixels(rowOfPixels.data(), rect.width(), source.opacity, target.pixel(rect.left(), y));
        }
    });
    return samples->isValid() ? Outcome::painted : Outcome::sourceIsNotOpaque;
}

} // namespace

void paintGaussianBlur(const QImage& source, qint64 sourceKey, const QRegion& region, double sigma,
                       PixelRows target) {
    if (region.isEmpty())
        return;
    // Seen from so far away the picture itself is a dot and every pixel the average of the four corners, to
    // a fraction of a grey level; an even larger sigma changes nothing but would end in infinities.
    const double largestSigma = 1024.0 * std::max(source.width(), source.height());
    const GaussianPlan plan = GaussianPlan::forSigma(std::min(sigma, largestSigma));
    if (plan.factors.empty())
        return paintAtFullSize(source, plan, region, target);
    std::unique_ptr<ShrunkSource> shrunk;
    if (plan.factors.front() == ShrunkSource::factor)
        shrunk = ShrunkSource::take(source, sourceKey);
    // Whether the pixels are opaque is known only after they were read: looking first would cost most
    // screenshots, which are, another pass.
    const Outcome outcome = paintEnlarged({source, Opacity::opaque, shrunk.get()}, plan, region, target);
    if (outcome == Outcome::sourceIsNotOpaque)
        paintEnlarged({source, Opacity::mixed}, plan, region, target);
    else if (shrunk)
        ShrunkSource::keep(std::move(shrunk));
}

} // namespace Veilshot
