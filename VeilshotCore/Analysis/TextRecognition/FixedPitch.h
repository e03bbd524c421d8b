#pragma once

#include <optional>
#include <vector>

namespace Veilshot {

/// How far apart the characters of a font of fixed width stand, given the distances from centre to centre of
/// neighbours within words; nothing for other fonts and for fewer than `leastPairs` distances.
std::optional<double> fixedPitch(std::vector<double> distances, std::size_t leastPairs);

} // namespace Veilshot
