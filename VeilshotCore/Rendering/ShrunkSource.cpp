#include "VeilshotCore/Rendering/ShrunkSource.h"

#include "VeilshotCore/Rendering/RegionRows.h"
#include "VeilshotCore/Rendering/ShrunkRows.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace Veilshot {

namespace {

/// In samples, of as many bytes as each stands for pixels: 64 megapixels, 64 megabytes.
constexpr qint64 mostSamples = (64 << 20) / 16;
/// A region that is moved about leaves scraps behind; from here on, making samples again costs less than
/// telling which are missing.
constexpr int mostRects = 4096;

struct Kept {
    std::mutex mutex;
    std::unique_ptr<ShrunkSource> shrunk;
    quint64 releases = 0;
};

/// Never destroyed: a thread may still render while the process ends.
Kept& kept() {
    static Kept& instance = *new Kept;
    return instance;
}

} // namespace

class ShrunkSource::Rows : public SampleRows {
public:
    Rows(const ShrunkSource& shrunk, bool isOpaque, const QRegion& needed)
        : SampleRows(shrunk.m_domain, needed, 0), m_shrunk(shrunk), m_isOpaque(isOpaque) {}
    const float* at(int column, int row) override {
        return m_shrunk.at(column, std::clamp(row, domain().top(), domain().bottom()));
    }
    bool isValid() const override { return m_isOpaque; }

private:
    void make(int, float*) override {} // all of them are there

    const ShrunkSource& m_shrunk;
    bool m_isOpaque;
};

std::unique_ptr<ShrunkSource> ShrunkSource::take(const QImage& source, qint64 sourceKey) {
    const QRect domain = shrunkDomain(source.rect(), factor);
    if (qint64(domain.width()) * domain.height() > mostSamples)
        return nullptr;
    std::unique_ptr<ShrunkSource> shrunk;
    quint64 releases = 0;
    {
        const std::lock_guard lock(kept().mutex);
        shrunk = std::move(kept().shrunk);
        releases = kept().releases;
    }
    if (!shrunk || shrunk->m_domain != domain)
        shrunk.reset(new ShrunkSource(domain, sourceKey));
    if (shrunk->m_sourceKey != sourceKey) {
        // Memory of the right size that was used before is cheaper than fresh memory.
        shrunk->m_sourceKey = sourceKey;
        shrunk->m_made = {};
    }
    shrunk->m_releasesBefore = releases;
    return shrunk;
}

void ShrunkSource::keep(std::unique_ptr<ShrunkSource> shrunk) {
    const std::lock_guard lock(kept().mutex);
    if (shrunk->m_releasesBefore == kept().releases)
        kept().shrunk.swap(shrunk); // the other one is freed after the lock
}

void ShrunkSource::release() {
    std::unique_ptr<ShrunkSource> released; // freed after the lock
    const std::lock_guard lock(kept().mutex);
    released = std::move(kept().shrunk);
    ++kept().releases;
}

ShrunkSource::ShrunkSource(const QRect& domain, qint64 sourceKey)
    : m_domain(domain), m_sourceKey(sourceKey),
      m_samples(std::make_unique_for_overwrite<float[]>(4 * std::size_t(m_domain.width()) *
                                                        std::size_t(m_domain.height()))) {}

std::unique_ptr<SampleRows> ShrunkSource::samples(const QImage& source, const QRegion& needed) {
    const bool isOpaque = makeMissing(source, needed);
    return std::make_unique<Rows>(*this, isOpaque, needed);
}

bool ShrunkSource::makeMissing(const QImage& source, const QRegion& needed) {
    if (m_made.rectCount() > mostRects)
        m_made = {};
    const QRegion missing = needed.subtracted(m_made);
    if (missing.isEmpty())
        return true;
    ShrunkPixels shrunk(source, factor, missing, 0);
    const int firstColumn = missing.boundingRect().left();
    forEachRow(missing, [&](int row, std::span<const QRect>) {
        if (shrunk.isValid())
            shrunk.make(row, at(firstColumn, row));
    });
    m_made = shrunk.isValid() ? m_made.united(missing) : QRegion();
    return shrunk.isValid();
}

float* ShrunkSource::at(int column, int row) const {
    const qsizetype index = qsizetype(row - m_domain.top()) * m_domain.width() + column - m_domain.left();
    return m_samples.get() + 4 * index;
}

} // namespace Veilshot
