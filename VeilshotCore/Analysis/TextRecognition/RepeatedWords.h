#pragma once

#include "VeilshotCore/Analysis/TextRecognition/LineReading.h"

#include <QSize>
#include <vector>

namespace Veilshot {

/// Lines that lay a passage with a run of capitalised words beside the other places at which one of these
/// words stands, repeatSeparator between them. Only these words have boxes. A word that belongs to many runs
/// is laid beside the first few.
std::vector<RecognizedLine> linesOfRepeatedWords(const std::vector<SegmentReading>& readings, QSize image);

} // namespace Veilshot
