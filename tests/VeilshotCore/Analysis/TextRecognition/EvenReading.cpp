#include "EvenReading.h"

namespace Veilshot {

SegmentReading evenReading(const QString& text, const QRect& box) {
    SegmentReading reading{text, {}, box};
    const double width = static_cast<double>(box.width()) / static_cast<double>(text.size());
    for (qsizetype index = 0; index < text.size(); ++index) {
        const double left = box.left() + static_cast<double>(index) * width;
        reading.symbols.push_back({{index, 1}, QRectF(left, box.top(), width, box.height())});
    }
    return reading;
}

} // namespace Veilshot
