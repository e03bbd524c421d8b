#pragma once

#include "VeilshotCore/Analysis/AnalysisOutcome.h"

#include <QImage>
#include <QRect>
#include <vector>

namespace Veilshot {

/// A run of text on one line, without wide gaps: a cell of a table, a line of a paragraph.
struct TextSegment {
    /// Around the ink, in pixels of the image, top-left origin.
    QRect box;
    /// The ink within `box` and nothing else: Format_Grayscale8, dark on white whatever the original colours,
    /// stretched to full contrast, one pixel for one pixel of the image.
    QImage ink;
};

/// Finds the runs of text of a Format_RGBA8888 picture of any size, in reading order (by rows, then from the
/// left). Works in tiles, so that memory stays bounded, and on all cores; returns early when cancelled.
std::vector<TextSegment> findTextSegments(const QImage& image, const CancellationCheck& isCancelled);

} // namespace Veilshot
