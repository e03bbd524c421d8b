#pragma once

#include "VeilshotCore/Analysis/NameTagging/NameLine.h"
#include "VeilshotCore/Analysis/TextRange.h"

#include <vector>

namespace Veilshot {

/// What is a name because it is joined to one of these names: "Kirstine" in "Kirstine & Palle Storgaard", and
/// by a comma in lists that have a label ("Cc: Tjorven, Anna") or, for several words, two names already, or
/// the first name in front of two others ("Tor Ivar Bakken").
std::vector<TextRange> namesJoinedTo(const std::vector<TextRange>& names, const NameLine& line);

} // namespace Veilshot
