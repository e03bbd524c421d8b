#pragma once

#include "VeilshotCore/Analysis/NameTagging/NameLine.h"

namespace Veilshot {

/// What the words of the span say together, on the scale of NameEvidence.
double wordEvidence(const NameLine& line, NameSpan span);

/// What the words before and behind say ("Dear", "joined", "Inc."), and whether the span fills a cell or is a
/// capitalized stranger in a sentence.
double surroundingEvidence(const NameLine& line, NameSpan span);

/// The parts of surroundingEvidence() that come from one side only.
double evidenceBefore(const NameLine& line, NameSpan span);
double evidenceBehind(const NameLine& line, NameSpan span);

} // namespace Veilshot
