#pragma once

#include <QImage>
#include <QRegion>
#include <vector>

namespace Veilshot {

/// A picture in exactly the pixels in which it is shown, with rounded corners: a GPU's filters would leave
/// out or blur lines of a large screenshot, and its upload alone costs several frames.
///
/// Smaller is averaged over the area of each pixel, larger is interpolated linearly. The result equals the
/// exact one to within one level of 255.
class FittedBitmap {
public:
    /// Null without a picture; otherwise in Format_RGBA8888_Premultiplied, which needs no conversion as a
    /// texture.
    const QImage& image() const { return m_image; }

    /// Shows `bitmap` (Format_RGBA8888), which equals the source known as `sourceKey` outside `painted`: as
    /// long as source and size stay, only what was painted before and now is computed again. Size and radius
    /// in pixels. A null bitmap or an empty size shows nothing. Everything else is up to the caller: two
    /// pictures of one source that differ elsewhere are not told apart.
    void show(const QImage& bitmap, qint64 sourceKey, const QRegion& painted, QSize size,
              double cornerRadius);

private:
    /// Which source pixels make up a pixel along one side, and by how much.
    struct Axis {
        struct Taps {
            int first;
            int count;
            size_t weights; ///< index of the first one
        };
        Axis() = default;
        Axis(int source, int target);
        /// The pixels that change with the source's pixels from `from` to before `to`.
        std::pair<int, int> touched(int from, int to) const;

        std::vector<Taps> taps;
        std::vector<qint16> weights; ///< of each pixel add up to 256; not negative in an average
        bool isAverage = true;

    private:
        void addAverage(qint64 begin, int source, int target);
        void addInterpolation(double position, int source);
    };

    void resample(const QImage& bitmap, const QRect& target);
    template<typename Sum>
    void resample(const QImage& bitmap, const QRect& target, std::vector<Sum>& sums);
    void roundCorners(int y, int left, int right, uchar* row) const;

    QImage m_image;
    qint64 m_bitmapKey = 0;
    qint64 m_sourceKey = 0;
    QSize m_sourceSize;
    QRegion m_painted;
    double m_cornerRadius = 0;
    Axis m_columns;
    Axis m_rows;
    std::vector<quint16> m_averages;
    std::vector<qint32> m_interpolations;
    std::vector<uchar> m_premultiplied;
};

} // namespace Veilshot
