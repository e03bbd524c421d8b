#include "Veilshot/Platform/OfferedImage.h"

#include "Veilshot/Platform/PngFile.h"

#include <QtConcurrentRun>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

const auto pngType = "image/png"_L1;
const auto imageObjectType = "application/x-qt-image"_L1;

} // namespace

OfferedImage::OfferedImage(const QImage& bitmap)
    : m_bitmap(bitmap), m_png(QtConcurrent::run(PngFile::encodePng, bitmap)) {}

OfferedImage::~OfferedImage() {
    m_png.cancel();
}

QStringList OfferedImage::formats() const {
    return {pngType, imageObjectType};
}

QVariant OfferedImage::retrieveData(const QString& mimeType, QMetaType type) const {
    if (mimeType == pngType) {
        const QByteArray png = m_png.result();
        return png.isEmpty() ? QVariant() : png; // without one, Qt turns to the image object
    }
    if (mimeType == imageObjectType)
        return m_bitmap;
    return QMimeData::retrieveData(mimeType, type);
}

} // namespace Veilshot
