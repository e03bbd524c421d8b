#pragma once

#include "VeilshotCore/Analysis/IdlePool.h"
#include "VeilshotCore/Analysis/TextRecognition/RecognitionSheet.h"
#include "VeilshotCore/Analysis/TextRecognition/TesseractEngine.h"
#include "VeilshotCore/Analysis/TextRecognizer.h"

#include <optional>
#include <vector>

namespace Veilshot {

/// Reads English and Danish with Tesseract. The text is first located and turned into dark ink on white, run
/// by run, so that neither a dark sidebar nor a coloured bubble nor small print is lost; then all cores read
/// it. Engines are created when first needed and kept warm.
class TesseractTextRecognizer : public TextRecognizer {
public:
    AnalysisOutcome<std::vector<RecognizedLine>>
    recognize(const QImage& image, const CancellationCheck& isCancelled) const override;

private:
    using Symbols = std::vector<TesseractEngine::Symbol>;

    AnalysisOutcome<std::vector<Symbols>> readSheet(const RecognitionSheet& sheet,
                                                    TesseractEngine::Layout layout,
                                                    const CancellationCheck& isCancelled) const;
    /// Reads the sheets and puts what each of their segments shows into `symbols`, which has a place for
    /// every segment. Nothing, or the first error.
    std::optional<AnalysisError> readSheets(const std::vector<RecognitionSheet>& sheets,
                                            TesseractEngine::Layout layout,
                                            const CancellationCheck& isCancelled,
                                            std::vector<Symbols>& symbols) const;

    mutable IdlePool<TesseractEngine> m_engines;
};

} // namespace Veilshot
