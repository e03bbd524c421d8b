#pragma once

#include <QString>
#include <array>
#include <optional>

namespace Veilshot {

/// How a region is hidden. The order is the order of `allRedactionStyles`.
enum class RedactionStyle { smooth, pixelate, blackout };

inline constexpr std::array allRedactionStyles{RedactionStyle::smooth, RedactionStyle::pixelate,
                                               RedactionStyle::blackout};

/// The style's name in settings and on the command line, for example "pixelate".
QString rawValue(RedactionStyle style);
/// The style with exactly this raw value (case-sensitive), or nothing.
std::optional<RedactionStyle> redactionStyleFromRawValue(QStringView rawValue);

/// The name in the style picker: "Smooth blur".
QString label(RedactionStyle style);
/// The name of the symbol drawn beside the style: "aqi.medium".
QString systemImage(RedactionStyle style);
/// The caption of the intensity control: "Blur strength".
QString intensityLabel(RedactionStyle style);
/// False when the intensity changes nothing in the result.
bool usesIntensity(RedactionStyle style);

} // namespace Veilshot
