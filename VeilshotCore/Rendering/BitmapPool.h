#pragma once

#include "VeilshotCore/Rendering/PixelRows.h"

#include <QImage>
#include <QRegion>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace Veilshot {

/// Memory for one rendered picture, in Format_RGBA8888, and what it holds.
class PooledBitmap {
public:
    /// Throws std::bad_alloc. The pixels are undefined.
    explicit PooledBitmap(QSize size);

    QSize size() const { return m_size; }
    PixelRows rows() const;

private:
    friend class BitmapPool;

    struct Release {
        void operator()(uchar* memory) const;
    };

    QSize m_size;
    std::unique_ptr<uchar, Release> m_memory;
    std::optional<qint64> m_sourceKey;
    /// Where the pixels may differ from that source.
    QRegion m_painted;
};

/// Keeps the memory of pictures that nobody holds any more for the next render. Fresh memory for a large
/// screenshot costs several times as much as a copy into memory that was used before, and a picture that was
/// rendered from the same source needs no copy at all: only what had been painted is put back.
/// Safe to use from several threads.
class BitmapPool {
public:
    /// The one pool of the process. It is never destroyed: a picture may outlive every other static object.
    static BitmapPool& shared();

    /// A bitmap that equals `source` everywhere outside `painted`; inside it anything may stand. `sourceKey`
    /// identifies the source's pixels, which must be in Format_RGBA8888. Throws std::bad_alloc.
    std::unique_ptr<PooledBitmap> take(const QImage& source, qint64 sourceKey, const QRegion& painted);

    /// The bitmap as an image. Every write through the image detaches it from the memory, which comes back
    /// to the pool when the last copy of the image dies.
    QImage wrap(std::unique_ptr<PooledBitmap> bitmap);

    /// Gives the memory that nobody uses back to the system.
    void release();

private:
    BitmapPool();
    std::unique_ptr<PooledBitmap> takeIdle(QSize size, qint64 sourceKey);
    void giveBack(std::unique_ptr<PooledBitmap> bitmap);

    std::mutex m_mutex;
    /// The least recently used first; all of `m_latestSize`.
    std::vector<std::unique_ptr<PooledBitmap>> m_idle;
    QSize m_latestSize;
    std::optional<qint64> m_latestKey;
};

} // namespace Veilshot
