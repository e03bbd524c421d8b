#pragma once

#include "VeilshotCore/Analysis/TextRecognition/LineReading.h"

#include <QSize>
#include <vector>

namespace Veilshot {

/// A part of a reading: from one character on up to another. The reading must outlive it.
struct ReadingPart {
    const SegmentReading& reading;
    TextRange range;

    QString text() const { return reading.text.sliced(range.location, range.length); }
    /// Those that the part touches, as of a text in which it begins at `offset`.
    std::vector<RecognizedLine::Symbol> symbols(qsizetype offset, QSize image) const;
};

ReadingPart whole(const SegmentReading& reading);

/// The texts of all parts, `between` them, in which only the part at `index` has boxes.
RecognizedLine lineWithBoxesOf(std::size_t index, const std::vector<ReadingPart>& parts, QStringView between,
                               QSize image);

/// Such a line for each of the parts.
void appendForEach(std::vector<RecognizedLine>& lines, const std::vector<ReadingPart>& parts,
                   QStringView between, QSize image);

} // namespace Veilshot
