#include "VeilshotCore/Analysis/TextRecognition/FixedPitch.h"

#include <algorithm>
#include <cmath>

namespace Veilshot {

std::optional<double> fixedPitch(std::vector<double> distances, std::size_t leastPairs) {
    constexpr double tolerance = 0.22;
    constexpr double leastShare = 0.8;
    if (distances.empty() || distances.size() < leastPairs)
        return std::nullopt;
    const auto median = distances.begin() + static_cast<std::ptrdiff_t>(distances.size() / 2);
    std::ranges::nth_element(distances, median);
    const double pitch = *median;
    const auto regular = std::ranges::count_if(
        distances, [&](double other) { return std::abs(other - pitch) <= tolerance * pitch; });
    return static_cast<double>(regular) >= leastShare * static_cast<double>(distances.size())
               ? std::optional(pitch)
               : std::nullopt;
}

} // namespace Veilshot
