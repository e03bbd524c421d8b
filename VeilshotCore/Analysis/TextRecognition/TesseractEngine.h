#pragma once

#include "VeilshotCore/Analysis/AnalysisOutcome.h"

#include <QImage>
#include <QRectF>
#include <memory>
#include <vector>

namespace Veilshot {

/// One warm Tesseract engine for English and Danish. Takes 0.1 to 0.2 s and some 40 MB to create. Not for use
/// by two threads at once, but it may move between threads from call to call.
class TesseractEngine {
public:
    /// One recognized character.
    struct Symbol {
        QString text;
        QRectF box; ///< in pixels of the page, top-left origin
        bool beginsWord = false;
    };

    /// Fails when the language data of a language is not installed; the message names the package.
    static AnalysisOutcome<std::unique_ptr<TesseractEngine>> create();

    ~TesseractEngine();
    TesseractEngine(const TesseractEngine&) = delete;
    TesseractEngine& operator=(const TesseractEngine&) = delete;

    enum class Layout { column, singleLine };

    /// Reads a Format_Grayscale8 page, dark text on white. Symbols come in text order; a page without text
    /// has none. Fails when the engine gives up: nobody may take that for a page without text.
    AnalysisOutcome<std::vector<Symbol>> read(const QImage& page, Layout layout,
                                              const CancellationCheck& isCancelled);

private:
    struct Api;

    explicit TesseractEngine(std::unique_ptr<Api> api);

    std::unique_ptr<Api> m_api;
};

} // namespace Veilshot
