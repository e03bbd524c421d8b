#pragma once

#include "VeilshotCore/Rendering/GaussianPlan.h"
#include "VeilshotCore/Rendering/SampleRows.h"

#include <QImage>
#include <QRegion>
#include <memory>

namespace Veilshot {

/// The first shrinking of an opaque source, as far as renders have needed it. It is the same for every sigma
/// that begins with the common factor: while a slider moves, the wide halo of the regions is read from the
/// source once, and then from these samples, a quarter of the bytes.
///
/// At most one is kept. Whoever has taken it is alone with it; another thread that blurs meanwhile begins
/// with an empty one. It makes no difference to the result: the samples are exact.
class ShrunkSource {
public:
    static constexpr int factor = GaussianPlan::commonFactor;

    /// The one that was kept, if it is of this source, or else one without samples. `sourceKey` identifies
    /// the source's pixels, which must be in Format_RGBA8888. Null for a source so large that its samples
    /// are not to be kept. Throws std::bad_alloc. Safe to use from several threads, like the next two.
    static std::unique_ptr<ShrunkSource> take(const QImage& source, qint64 sourceKey);
    /// For the next render, unless release() was called since it was taken.
    static void keep(std::unique_ptr<ShrunkSource> shrunk);
    /// Gives the memory of the kept one back to the system.
    static void release();

    /// The lattice that ShrunkPixels makes, to the bit, but only what is missing is made. It reads from this
    /// object, which must outlive it. If a needed sample sees a pixel that is not opaque, the lattice is
    /// invalid and this object of no more use.
    std::unique_ptr<SampleRows> samples(const QImage& source, const QRegion& needed);

private:
    ShrunkSource(const QRect& domain, qint64 sourceKey);
    bool makeMissing(const QImage& source, const QRegion& needed);
    float* at(int column, int row) const;

    class Rows;

    QRect m_domain;
    qint64 m_sourceKey;
    quint64 m_releasesBefore = 0;
    /// Not initialized: where no sample is made, the system need not provide memory.
    std::unique_ptr<float[]> m_samples;
    QRegion m_made;
};

} // namespace Veilshot
