#include "VeilshotCore/Rendering/RedactionStyle.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

struct Texts {
    QLatin1StringView rawValue;
    QLatin1StringView label;
    QLatin1StringView systemImage;
    QLatin1StringView intensityLabel;
};

const Texts& texts(RedactionStyle style) {
    static constexpr std::array<Texts, allRedactionStyles.size()> table{{
        {"smooth"_L1, "Smooth blur"_L1, "aqi.medium"_L1, "Blur strength"_L1},
        {"pixelate"_L1, "Pixelate"_L1, "square.grid.3x3.fill"_L1, "Pixel size"_L1},
        {"blackout"_L1, "Blackout"_L1, "rectangle.fill"_L1, "Strength"_L1},
    }};
    return table[static_cast<std::size_t>(style)];
}

} // namespace

QString rawValue(RedactionStyle style) {
    return texts(style).rawValue;
}

std::optional<RedactionStyle> redactionStyleFromRawValue(QStringView rawValue) {
    const auto found = std::ranges::find_if(
        allRedactionStyles, [&](RedactionStyle style) { return texts(style).rawValue == rawValue; });
    if (found == allRedactionStyles.end())
        return std::nullopt;
    return *found;
}

QString label(RedactionStyle style) {
    return texts(style).label;
}

QString systemImage(RedactionStyle style) {
    return texts(style).systemImage;
}

QString intensityLabel(RedactionStyle style) {
    return texts(style).intensityLabel;
}

bool usesIntensity(RedactionStyle style) {
    return style != RedactionStyle::blackout;
}

} // namespace Veilshot
