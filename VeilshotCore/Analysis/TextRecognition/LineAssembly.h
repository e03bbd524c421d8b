#pragma once

#include "VeilshotCore/Analysis/TextRecognition/LineReading.h"
#include "VeilshotCore/Analysis/TextRecognizer.h"

#include <QSize>
#include <vector>

namespace Veilshot {

/// The lines of an image of this size. A label that ends in a colon is one line with the value beside it,
/// however wide the column between them, and a line of a font of fixed width or a telephone number torn at a
/// wide blank is whole again; apart from that every segment is a line. Behind them follow the combinedLines.
std::vector<RecognizedLine> assembleLines(const std::vector<SegmentReading>& readings, QSize image);

} // namespace Veilshot
