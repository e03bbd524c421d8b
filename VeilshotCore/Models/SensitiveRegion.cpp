#include "VeilshotCore/Models/SensitiveRegion.h"

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

template<typename Word>
Word wordForThird(double centre, Word low, Word middle, Word high) {
    if (centre < 1.0 / 3.0)
        return low;
    return centre > 2.0 / 3.0 ? high : middle;
}

} // namespace

QString SensitiveRegion::locationLabel() const {
    const auto vertical = wordForThird(m_normalizedRect.midY(), "Bottom"_L1, "Middle"_L1, "Top"_L1);
    const auto horizontal = wordForThird(m_normalizedRect.midX(), " left"_L1, ""_L1, " right"_L1);
    return vertical + horizontal;
}

} // namespace Veilshot
