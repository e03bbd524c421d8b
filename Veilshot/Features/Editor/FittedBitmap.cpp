#include "Veilshot/Features/Editor/FittedBitmap.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace Veilshot {

namespace {

constexpr int channels = 4;
constexpr int whole = 256; // the weight of a pixel that counts alone

bool isOpaque(const uchar* pixels, int count) {
    uchar alpha = 255;
    for (int i = 0; i < count; ++i)
        alpha &= pixels[channels * i + 3];
    return alpha == 255;
}

void premultiply(const uchar* pixels, int count, uchar* result) {
    for (int i = 0; i < channels * count; i += channels) {
        const int alpha = pixels[i + 3];
        for (int c = 0; c < 3; ++c)
            result[i + c] = uchar((pixels[i + c] * alpha + 127) / 255);
        result[i + 3] = uchar(alpha);
    }
}

template<typename Sum>
void setSums(const uchar* values, size_t count, int weight, Sum* sums) {
    for (size_t i = 0; i < count; ++i)
        sums[i] = Sum(values[i] * Sum(weight));
}

template<typename Sum>
void addToSums(const uchar* values, size_t count, int weight, Sum* sums) {
    for (size_t i = 0; i < count; ++i)
        sums[i] = Sum(sums[i] + values[i] * Sum(weight));
}

/// For the four neighbours of a point that lies so far after the second.
std::array<int, 4> cubicWeights(double share) {
    const double t = share;
    const std::array<double, 4> exact{((2 - t) * t - 1) * t / 2, ((3 * t - 5) * t * t + 2) / 2,
                                      ((4 - 3 * t) * t + 1) * t / 2, (t - 1) * t * t / 2};
    std::array<int, 4> weights;
    std::ranges::transform(exact, weights.begin(),
                           [](double weight) { return int(std::lround(weight * whole)); });
    weights[t < 0.5 ? 1 : 2] += whole - std::accumulate(weights.begin(), weights.end(), 0);
    return weights;
}

} // namespace

FittedBitmap::Axis::Axis(int source, int target) : isAverage(target <= source) {
    taps.reserve(size_t(target));
    for (int i = 0; i < target; ++i) {
        if (isAverage)
            addAverage(qint64(i) * source, source, target);
        else
            addInterpolation((i + 0.5) * source / target - 0.5, source);
    }
}

/// In units of which a source pixel has `target` and a target pixel `source`. What a weight lacks by
/// rounding, the next one gets.
void FittedBitmap::Axis::addAverage(qint64 begin, int source, int target) {
    const qint64 end = begin + source;
    const int first = int(begin / target);
    const int last = int((end - 1) / target);
    taps.push_back({first, last - first + 1, weights.size()});
    qint64 before = 0;
    for (int pixel = first; pixel <= last; ++pixel) {
        const qint64 covered = std::min(qint64(pixel + 1) * target, end) - begin;
        const qint64 upToHere = (covered * whole + source / 2) / source;
        weights.push_back(qint16(upToHere - before));
        before = upToHere;
    }
}

void FittedBitmap::Axis::addInterpolation(double position, int source) {
    const int base = int(std::floor(position));
    const auto inside = [&](int pixel) { return std::clamp(pixel, 0, source - 1); };
    const int first = inside(base - 1);
    const int count = inside(base + 2) - first + 1;
    taps.push_back({first, count, weights.size()});
    qint16* const own = &*weights.insert(weights.end(), size_t(count), qint16(0));
    const auto cubic = cubicWeights(position - base);
    for (int k = 0; k < int(cubic.size()); ++k)
        own[inside(base - 1 + k) - first] += qint16(cubic[size_t(k)]);
}

std::pair<int, int> FittedBitmap::Axis::touched(int from, int to) const {
    const auto begin = std::ranges::partition_point(
        taps, [&](const Taps& pixel) { return pixel.first + pixel.count <= from; });
    const auto end = std::ranges::partition_point(taps, [&](const Taps& pixel) { return pixel.first < to; });
    return {int(begin - taps.begin()), int(end - taps.begin())};
}

void FittedBitmap::show(const QImage& bitmap, qint64 sourceKey, const QRegion& painted, QSize size,
                        double cornerRadius) {
    if (bitmap.isNull() || size.isEmpty()) {
        *this = {};
        return;
    }
    const bool isFresh = m_image.size() != size || m_sourceKey != sourceKey ||
                         m_sourceSize != bitmap.size() || m_cornerRadius != cornerRadius;
    if (!isFresh && m_bitmapKey == bitmap.cacheKey())
        return;
    QRegion changed = painted + m_painted;
    if (isFresh) {
        m_image = QImage(size, QImage::Format_RGBA8888_Premultiplied);
        if (m_image.isNull()) { // not enough memory
            *this = {};
            return;
        }
        m_sourceSize = bitmap.size();
        m_cornerRadius = cornerRadius;
        m_columns = Axis(bitmap.width(), size.width());
        m_rows = Axis(bitmap.height(), size.height());
        changed = bitmap.rect();
    }
    m_bitmapKey = bitmap.cacheKey();
    m_sourceKey = sourceKey;
    m_painted = painted;
    for (const QRect& rect : changed) {
        const auto [left, right] = m_columns.touched(rect.left(), rect.right() + 1);
        const auto [top, bottom] = m_rows.touched(rect.top(), rect.bottom() + 1);
        resample(bitmap, QRect(QPoint(left, top), QPoint(right - 1, bottom - 1)));
    }
}

void FittedBitmap::resample(const QImage& bitmap, const QRect& target) {
    if (target.isEmpty())
        return;
    if (m_columns.isAverage && m_rows.isAverage)
        resample(bitmap, target, m_averages);
    else
        resample(bitmap, target, m_interpolations);
}

template<typename Sum>
void FittedBitmap::resample(const QImage& bitmap, const QRect& target, std::vector<Sum>& sums) {
    const Axis::Taps& lastColumn = m_columns.taps[size_t(target.right())];
    const int sourceLeft = m_columns.taps[size_t(target.left())].first;
    const int sourceWidth = lastColumn.first + lastColumn.count - sourceLeft;
    const size_t valueCount = size_t(sourceWidth) * channels;
    sums.resize(valueCount);
    uchar* const pixels = m_image.bits();
    for (int y = target.top(); y <= target.bottom(); ++y) {
        // First down the columns, over whole rows: most of the work, and simple enough for the compiler to do
        // eight values at a time. 255 times all weights just fits.
        const Axis::Taps& rows = m_rows.taps[size_t(y)];
        for (int k = 0; k < rows.count; ++k) {
            const uchar* row = bitmap.constScanLine(rows.first + k) + channels * sourceLeft;
            if (!isOpaque(row, sourceWidth)) {
                m_premultiplied.resize(valueCount);
                premultiply(row, sourceWidth, m_premultiplied.data());
                row = m_premultiplied.data();
            }
            const int weight = m_rows.weights[rows.weights + size_t(k)];
            (k == 0 ? setSums<Sum> : addToSums<Sum>)(row, valueCount, weight, sums.data());
        }
        uchar* const line = pixels + qsizetype(y) * m_image.bytesPerLine();
        for (int x = target.left(); x <= target.right(); ++x) {
            const Axis::Taps& columns = m_columns.taps[size_t(x)];
            const Sum* sum = sums.data() + channels * (columns.first - sourceLeft);
            const qint16* weight = m_columns.weights.data() + columns.weights;
            int value[channels] = {};
            for (int k = 0; k < columns.count; ++k, sum += channels) {
                for (int c = 0; c < channels; ++c)
                    value[c] += int(sum[c]) * weight[k];
            }
            // An interpolation may overshoot: beyond black and white, and a colour beyond its alpha.
            int limit = 255;
            for (int c = channels - 1; c >= 0; --c) {
                value[c] = std::clamp((value[c] + whole * whole / 2) >> 16, 0, limit);
                limit = value[channels - 1];
                line[channels * x + c] = uchar(value[c]);
            }
        }
        roundCorners(y, target.left(), target.right(), line);
    }
}

void FittedBitmap::roundCorners(int y, int left, int right, uchar* row) const {
    const double radius = std::min({m_cornerRadius, m_image.width() / 2.0, m_image.height() / 2.0});
    // How far a pixel's centre lies beyond the centre of the corner's circle.
    const auto excess = [&](int position, int length) {
        return radius - std::min(position + 0.5, length - position - 0.5);
    };
    const double dy = excess(y, m_image.height());
    if (dy <= 0)
        return;
    const auto round = [&](int from, int to) {
        for (int x = from; x <= to; ++x) {
            const double dx = excess(x, m_image.width());
            if (dx <= 0)
                continue;
            const double coverage = std::clamp(radius + 0.5 - std::hypot(dx, dy), 0.0, 1.0);
            for (int c = 0; c < channels; ++c)
                row[channels * x + c] = uchar(std::lround(row[channels * x + c] * coverage));
        }
    };
    const int corner = int(std::ceil(radius));
    round(left, std::min(right, corner - 1));
    round(std::max(left, m_image.width() - corner), right);
}

} // namespace Veilshot
