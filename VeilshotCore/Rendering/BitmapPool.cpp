#include "VeilshotCore/Rendering/BitmapPool.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace Veilshot {

namespace {

/// One picture on screen, one being rendered: while a slider moves, two bitmaps take turns.
constexpr std::size_t idleLimit = 2;
constexpr std::size_t alignment = 64;

void copyPixels(const QImage& source, const QRegion& region, PixelRows target) {
    for (const QRect& rect : region) {
        const std::size_t bytes = 4 * std::size_t(rect.width());
        for (int y = rect.top(); y <= rect.bottom(); ++y)
            std::memcpy(target.pixel(rect.left(), y), source.constScanLine(y) + 4 * qsizetype(rect.left()),
                        bytes);
    }
}

} // namespace

PooledBitmap::PooledBitmap(QSize size) : m_size(size) {
    const std::size_t bytes = 4 * std::size_t(size.width()) * std::size_t(size.height());
    const std::size_t padded = (bytes + alignment - 1) / alignment * alignment;
    m_memory.reset(static_cast<uchar*>(std::aligned_alloc(alignment, padded)));
    if (!m_memory)
        throw std::bad_alloc();
}

PixelRows PooledBitmap::rows() const {
    return {m_memory.get(), 4 * qsizetype(m_size.width())};
}

void PooledBitmap::Release::operator()(uchar* memory) const {
    std::free(memory);
}

BitmapPool::BitmapPool() {
    m_idle.reserve(idleLimit + 1); // giving back must not throw
}

BitmapPool& BitmapPool::shared() {
    static BitmapPool& pool = *new BitmapPool;
    return pool;
}

std::unique_ptr<PooledBitmap> BitmapPool::take(const QImage& source, qint64 sourceKey,
                                               const QRegion& painted) {
    std::unique_ptr<PooledBitmap> bitmap = takeIdle(source.size(), sourceKey);
    if (!bitmap)
        bitmap = std::make_unique<PooledBitmap>(source.size());
    const bool holdsSource = bitmap->m_sourceKey == sourceKey;
    copyPixels(source, holdsSource ? bitmap->m_painted.subtracted(painted) : QRegion(source.rect()),
               bitmap->rows());
    bitmap->m_sourceKey = sourceKey;
    bitmap->m_painted = painted;
    return bitmap;
}

std::unique_ptr<PooledBitmap> BitmapPool::takeIdle(QSize size, qint64 sourceKey) {
    const std::lock_guard lock(m_mutex);
    m_latestKey = sourceKey;
    if (std::exchange(m_latestSize, size) != size)
        m_idle.clear();
    if (m_idle.empty())
        return nullptr;
    auto chosen =
        std::ranges::find_if(m_idle, [&](const auto& idle) { return idle->m_sourceKey == sourceKey; });
    if (chosen == m_idle.end())
        chosen = m_idle.begin();
    std::unique_ptr<PooledBitmap> bitmap = std::move(*chosen);
    m_idle.erase(chosen);
    return bitmap;
}

QImage BitmapPool::wrap(std::unique_ptr<PooledBitmap> bitmap) {
    const PixelRows rows = bitmap->rows();
    const QSize size = bitmap->size();
    // The constructor for constant memory: with the other one a caller's QPainter would draw into the pool.
    QImage image(
        static_cast<const uchar*>(rows.firstRow), size.width(), size.height(), rows.bytesPerRow,
        QImage::Format_RGBA8888,
        [](void* bitmapOfImage) {
            shared().giveBack(std::unique_ptr<PooledBitmap>(static_cast<PooledBitmap*>(bitmapOfImage)));
        },
        bitmap.get());
    if (!image.isNull())
        static_cast<void>(bitmap.release());
    return image;
}

void BitmapPool::giveBack(std::unique_ptr<PooledBitmap> bitmap) {
    std::unique_ptr<PooledBitmap> surplus; // freed after the lock
    const std::lock_guard lock(m_mutex);
    if (bitmap->size() != m_latestSize)
        return;
    m_idle.push_back(std::move(bitmap));
    if (m_idle.size() > idleLimit) {
        auto dropped =
            std::ranges::find_if(m_idle, [&](const auto& idle) { return idle->m_sourceKey != m_latestKey; });
        if (dropped == m_idle.end())
            dropped = m_idle.begin();
        surplus = std::move(*dropped);
        m_idle.erase(dropped);
    }
}

void BitmapPool::release() {
    const std::lock_guard lock(m_mutex);
    m_idle.clear();
    m_latestSize = {};
}

} // namespace Veilshot
