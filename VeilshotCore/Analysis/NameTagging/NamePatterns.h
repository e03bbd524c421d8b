#pragma once

#include "VeilshotCore/Analysis/NameTagging/NameLine.h"
#include "VeilshotCore/Analysis/TextRange.h"

#include <vector>

namespace Veilshot {

/// Names that their form gives away even where no list holds them: with initials ("Adaeze N.", "Tamm, K."),
/// last name first ("Hollow, Jasper"), in a byline, alone in their line. In order.
std::vector<TextRange> namesByPattern(const NameLine& line);

} // namespace Veilshot
