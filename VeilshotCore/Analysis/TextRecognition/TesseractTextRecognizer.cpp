#include "VeilshotCore/Analysis/TextRecognition/TesseractTextRecognizer.h"

#include "VeilshotCore/Analysis/AnalysisPool.h"
#include "VeilshotCore/Analysis/TextRecognition/LineReading.h"
#include "VeilshotCore/Analysis/TextRecognition/RecognitionSheet.h"
#include "VeilshotCore/Analysis/TextRecognition/TextSegments.h"

#include <QThread>
#include <QtConcurrent>
#include <new>

namespace Veilshot {

AnalysisOutcome<std::vector<RecognizedLine>>
TesseractTextRecognizer::recognize(const QImage& image, const CancellationCheck& isCancelled) const {
    const QImage bitmap = image.convertedTo(QImage::Format_RGBA8888);
    if (bitmap.isNull() && !image.isNull())
        throw std::bad_alloc();
    const std::vector<TextSegment> segments = findTextSegments(bitmap, isCancelled);
    const std::vector<RecognitionSheet> sheets = planSheets(segments, QThread::idealThreadCount());

    using SheetReading = AnalysisOutcome<std::vector<std::vector<TesseractEngine::Symbol>>>;
    const auto outcomes = QtConcurrent::blockingMapped<std::vector<SheetReading>>(
        &analysisPool(), sheets, [&](const RecognitionSheet& sheet) -> SheetReading {
            if (isCancelled())
                return {};
            auto taken = takeEngine();
            if (const auto* error = std::get_if<AnalysisError>(&taken))
                return *error;
            auto& engine = std::get<std::unique_ptr<TesseractEngine>>(taken);
            const auto read = engine->read(sheet.draw(), isCancelled);
            giveBack(std::move(engine));
            if (const auto* error = std::get_if<AnalysisError>(&read))
                return *error;
            return sheet.distribute(std::get<std::vector<TesseractEngine::Symbol>>(read));
        });
    if (isCancelled())
        return std::vector<RecognizedLine>();

    std::vector<SegmentReading> readings(segments.size());
    for (std::size_t sheet = 0; sheet < sheets.size(); ++sheet) {
        if (const auto* error = std::get_if<AnalysisError>(&outcomes[sheet]))
            return *error;
        const auto& symbols = std::get<0>(outcomes[sheet]);
        for (std::size_t row = 0; row < symbols.size(); ++row) {
            const std::size_t segment = sheets[sheet].indices()[row];
            readings[segment] = readSegment(segments[segment], symbols[row]);
        }
    }
    return assembleLines(readings, bitmap.size());
}

AnalysisOutcome<std::unique_ptr<TesseractEngine>> TesseractTextRecognizer::takeEngine() const {
    {
        const std::lock_guard lock(m_mutex);
        if (!m_idleEngines.empty()) {
            auto engine = std::move(m_idleEngines.back());
            m_idleEngines.pop_back();
            return engine;
        }
    }
    return TesseractEngine::create();
}

void TesseractTextRecognizer::giveBack(std::unique_ptr<TesseractEngine> engine) const {
    const std::lock_guard lock(m_mutex);
    m_idleEngines.push_back(std::move(engine));
}

} // namespace Veilshot
