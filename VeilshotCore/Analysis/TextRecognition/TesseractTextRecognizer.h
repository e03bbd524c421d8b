#pragma once

#include "VeilshotCore/Analysis/TextRecognition/TesseractEngine.h"
#include "VeilshotCore/Analysis/TextRecognizer.h"

#include <memory>
#include <mutex>
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
    AnalysisOutcome<std::unique_ptr<TesseractEngine>> takeEngine() const;
    void giveBack(std::unique_ptr<TesseractEngine> engine) const;

    mutable std::mutex m_mutex;
    mutable std::vector<std::unique_ptr<TesseractEngine>> m_idleEngines;
};

} // namespace Veilshot
