#pragma once

#include <QImage>
#include <QObject>
#include <QSizeF>

namespace Veilshot {

/// A bitmap (see ImageDecoder) and the size at which it is shown. The bitmap itself knows nothing of points:
/// to give a QImage a device pixel ratio copies all of its pixels.
class DisplayImage {
    Q_GADGET
    Q_PROPERTY(QImage bitmap READ bitmap)
    Q_PROPERTY(QSizeF size READ size)
    Q_PROPERTY(bool isNull READ isNull)

public:
    DisplayImage() = default;
    DisplayImage(const QImage& bitmap, QSizeF size) : m_bitmap(bitmap), m_size(size) {}

    const QImage& bitmap() const { return m_bitmap; }
    /// In points.
    QSizeF size() const { return m_size; }
    bool isNull() const { return m_bitmap.isNull(); }

    /// Whether both are the same image, which is not the same as looking alike: it does not compare pixels.
    friend bool operator==(const DisplayImage& left, const DisplayImage& right) {
        return left.m_bitmap.cacheKey() == right.m_bitmap.cacheKey() && left.m_size == right.m_size;
    }

private:
    QImage m_bitmap;
    QSizeF m_size;
};

} // namespace Veilshot
