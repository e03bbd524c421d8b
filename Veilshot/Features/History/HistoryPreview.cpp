#include "Veilshot/Features/History/HistoryPreview.h"

#include <algorithm>

namespace Veilshot {

QSize HistoryPreview::previewSize(QSize image, int maxPixels) {
    const double scale = std::min(1.0, double(maxPixels) / std::max(image.width(), image.height()));
    return {std::max(1, int(scale * image.width())), std::max(1, int(scale * image.height()))};
}

QImage HistoryPreview::downscaled(const QImage& image, int maxPixels) {
    if (image.isNull())
        return {};
    return image.scaled(previewSize(image.size(), maxPixels), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_RGBA8888);
}

} // namespace Veilshot
