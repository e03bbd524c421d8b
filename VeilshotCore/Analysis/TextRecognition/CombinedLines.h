#pragma once

#include "VeilshotCore/Analysis/TextRecognition/LineReading.h"
#include "VeilshotCore/Analysis/TextRecognizer.h"

#include <QSize>
#include <vector>

namespace Veilshot {

/// Lines that are there already but tell more together:
/// - a label such as "Born" or "Assignee" with what stands beside it, below it, or anywhere in its column, a
///   tab between them;
/// - a text with what it goes on with in the next row: wrapped prose, an address, a number, a link;
/// - a column of what may be names, from its header down, cellSeparator between the cells.
/// All but the columns come once for each part, with the boxes of that part only, so that a detail that lies
/// in several is covered where each of its parts stands and not around them all.
std::vector<RecognizedLine> combinedLines(const std::vector<SegmentReading>& readings, QSize image);

} // namespace Veilshot
