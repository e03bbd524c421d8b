#pragma once

#include "VeilshotCore/Analysis/NameTagging/NameLine.h"
#include "VeilshotCore/Analysis/TextRange.h"

#include <vector>

namespace Veilshot {

/// Names that need no weighing:
/// - what stands behind a title, whatever else it means: "Mr Church", "Dr. June Castle";
/// - a common first name that means nothing else, with the surname behind it: "asked Thaddeus Crumb";
/// - any first name in front of a last name that means nothing else: "Hyacinth Mbeki";
/// - any first name that means nothing else, in front of what people do: "Lettice would like";
/// - a common last name that means nothing else, where people are spoken of: "with Pugh on Sunday";
/// - words of which a mail address in the line is made: "Park,Ha-eun,haeun.park@naru.example".
std::vector<TextRange> unmistakableNames(const NameLine& line);

} // namespace Veilshot
