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

} // namespace Veilshot
