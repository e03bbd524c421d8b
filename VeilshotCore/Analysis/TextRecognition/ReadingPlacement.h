#pragma once

#include "VeilshotCore/Analysis/TextRecognition/LineReading.h"

#include <vector>

namespace Veilshot {

/// Whether the value stands in the same row behind the label, near enough to belong to it.
bool isBeside(const SegmentReading& label, const SegmentReading& value);

/// The same of a label that tells for certain what the value is, which may stand at the other edge.
bool isFarBeside(const SegmentReading& label, const SegmentReading& value);

/// Whether the value stands in a field with a frame below the label.
bool isInFieldBelow(const SegmentReading& label, const SegmentReading& value);

/// Whether one stands right below the other as in a column, flush left.
bool isBelow(const SegmentReading& upper, const SegmentReading& lower);

/// What stands below the cell in its column, from row to row, however far each is from the next.
std::vector<std::size_t> cellsBelow(std::size_t cell, const std::vector<SegmentReading>& readings);

/// The columns of tables and lists: three cells or more of which each stands below the one before, flush
/// left, flush right or centred, in rows of equal height. Of the first cell, often a header, the row may be
/// of another height; a row without a cell is passed over. Each is a list of indices into `readings`, from
/// the top; long texts are in none.
std::vector<std::vector<std::size_t>> columnsOf(const std::vector<SegmentReading>& readings);

} // namespace Veilshot
