#pragma once

#include "VeilshotCore/Analysis/TextRecognition/TesseractEngine.h"
#include "VeilshotCore/Analysis/TextRecognition/TextSegments.h"
#include "VeilshotCore/Analysis/TextRecognizer.h"

#include <vector>

namespace Veilshot {

/// What was read from one segment.
struct SegmentReading {
    struct Symbol {
        TextRange range;
        QRectF box; ///< in pixels of the image, top-left origin
    };

    QString text;
    std::vector<Symbol> symbols;
    QRect box; ///< of the segment, in pixels of the image
};

/// Puts the symbols of one segment (boxes in pixels of its ink) together. The recognizer splits long tokens
/// at signs like "_" and ":"; where the ink shows no blank, none is kept. Boxes are given the height of their
/// word's ink.
SegmentReading readSegment(const TextSegment& segment, const std::vector<TesseractEngine::Symbol>& symbols);

/// The lines of an image of this size. A label that ends in a colon is one line with the value beside it,
/// however wide the column between them; apart from that every segment is a line. Behind them follow lines of
/// two segments each that are there already but tell more together: a label such as "Born" with what stands
/// beside or below it, a tab between them, and the end of a text with the rest of it in the next row. Each of
/// these comes twice, with the boxes of one of the two only.
std::vector<RecognizedLine> assembleLines(const std::vector<SegmentReading>& readings, QSize image);

} // namespace Veilshot
