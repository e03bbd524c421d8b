#pragma once

#include "VeilshotCore/Analysis/TextRecognition/TesseractEngine.h"
#include "VeilshotCore/Analysis/TextRecognition/TextSegments.h"

#include <QImage>
#include <vector>

namespace Veilshot {

/// A page of its own making for the recognizer: segments of similar height below each other, small ones
/// enlarged and huge ones reduced. Reading one sheet of many segments takes as long as reading each alone,
/// but finds a little more, and one engine reads one sheet.
class RecognitionSheet {
public:
    /// `segments` outlive the sheet; `indices` say which of them it holds.
    RecognitionSheet(const std::vector<TextSegment>& segments, std::vector<std::size_t> indices);

    const std::vector<std::size_t>& indices() const { return m_indices; }

    /// Format_Grayscale8, dark on white.
    QImage draw() const;

    /// The symbols read from the page, shared out among the segments (in the order of `indices`) with their
    /// boxes in pixels of the segment's ink.
    std::vector<std::vector<TesseractEngine::Symbol>>
    distribute(const std::vector<TesseractEngine::Symbol>& symbols) const;

private:
    struct Row {
        int top = 0;
        QSize size;
        double scale = 1;
    };

    const std::vector<TextSegment>& m_segments;
    std::vector<std::size_t> m_indices;
    std::vector<Row> m_rows;
    QSize m_size;
};

/// Shares the segments out among sheets of similar work, at least `workers` of them where there is enough to
/// do.
std::vector<RecognitionSheet> planSheets(const std::vector<TextSegment>& segments, int workers);

} // namespace Veilshot
