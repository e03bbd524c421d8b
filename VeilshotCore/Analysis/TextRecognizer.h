#pragma once

#include "VeilshotCore/Analysis/AnalysisOutcome.h"
#include "VeilshotCore/Analysis/TextRange.h"
#include "VeilshotCore/Models/NormalizedRect.h"

#include <QImage>
#include <optional>
#include <vector>

namespace Veilshot {

/// One recognized line: the text of its best reading and where each part of it stands in the image.
class RecognizedLine {
public:
    /// A piece of the text that has a box of its own, usually one character.
    struct Symbol {
        TextRange range;
        NormalizedRect box;
    };

    /// `symbols` are in text order and do not overlap; text without a symbol (blanks) has no box.
    RecognizedLine(QString text, std::vector<Symbol> symbols);

    const QString& text() const { return m_text; }
    /// Around the whole line.
    const NormalizedRect& boundingBox() const { return m_boundingBox; }
    /// Around the symbols that the range touches; nothing for a range outside the text or one of blanks.
    std::optional<NormalizedRect> boundingBox(TextRange range) const;

private:
    QString m_text;
    std::vector<Symbol> m_symbols;
    NormalizedRect m_boundingBox;
};

/// Reads the text of a picture.
class TextRecognizer {
public:
    virtual ~TextRecognizer() = default;

    /// Takes a bitmap of any size in Format_RGBA8888. A line is what a person would read as one. Blocks until
    /// done, for seconds on a large picture; never call it on the main thread. May be called from several
    /// threads at once. Throws std::bad_alloc when memory runs out; the detectors turn it into an error.
    virtual AnalysisOutcome<std::vector<RecognizedLine>>
    recognize(const QImage& image, const CancellationCheck& isCancelled) const = 0;
};

} // namespace Veilshot
