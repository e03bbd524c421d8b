#include "VeilshotCore/Analysis/TextRecognition/TesseractTextRecognizer.h"

#include "VeilshotCore/Analysis/AnalysisPool.h"
#include "VeilshotCore/Analysis/TextRecognition/LineAssembly.h"
#include "VeilshotCore/Analysis/TextRecognition/TextSegments.h"

#include <QThread>
#include <QtConcurrent>
#include <new>

namespace Veilshot {

namespace {

/// On a page of its own each segment that looks like a word but was read as nothing: among unlike rows the
/// recognizer now and then overlooks one.
std::vector<RecognitionSheet>
sheetsOfOverlooked(const std::vector<TextSegment>& segments,
                   const std::vector<std::vector<TesseractEngine::Symbol>>& symbols) {
    constexpr double leastWidthOfWord = 1.5; // in heights
    std::vector<RecognitionSheet> sheets;
    for (std::size_t index = 0; index < segments.size(); ++index) {
        const QRect& box = segments[index].box;
        if (symbols[index].empty() && box.width() >= leastWidthOfWord * box.height())
            sheets.emplace_back(segments, std::vector{index});
    }
    return sheets;
}

} // namespace

AnalysisOutcome<std::vector<RecognizedLine>>
TesseractTextRecognizer::recognize(const QImage& image, const CancellationCheck& isCancelled) const {
    const QImage bitmap = image.convertedTo(QImage::Format_RGBA8888);
    if (bitmap.isNull() && !image.isNull())
        throw std::bad_alloc();
    const std::vector<TextSegment> segments = findTextSegments(bitmap, isCancelled);
    std::vector<Symbols> symbols(segments.size());
    if (const auto error = readSheets(planSheets(segments, QThread::idealThreadCount()),
                                      TesseractEngine::Layout::column, isCancelled, symbols))
        return *error;
    if (const auto error = readSheets(sheetsOfOverlooked(segments, symbols),
                                      TesseractEngine::Layout::singleLine, isCancelled, symbols))
        return *error;

    std::vector<SegmentReading> readings;
    for (std::size_t index = 0; index < segments.size(); ++index)
        readings.push_back(readSegment(segments[index], symbols[index]));
    return assembleLines(readings, bitmap.size());
}

std::optional<AnalysisError> TesseractTextRecognizer::readSheets(const std::vector<RecognitionSheet>& sheets,
                                                                 TesseractEngine::Layout layout,
                                                                 const CancellationCheck& isCancelled,
                                                                 std::vector<Symbols>& symbols) const {
    const auto outcomes = QtConcurrent::blockingMapped<std::vector<AnalysisOutcome<std::vector<Symbols>>>>(
        &analysisPool(), sheets,
        [&](const RecognitionSheet& sheet) { return readSheet(sheet, layout, isCancelled); });
    for (std::size_t sheet = 0; sheet < sheets.size(); ++sheet) {
        if (const auto* error = std::get_if<AnalysisError>(&outcomes[sheet]))
            return *error;
        const auto& rows = std::get<std::vector<Symbols>>(outcomes[sheet]);
        for (std::size_t row = 0; row < rows.size(); ++row)
            symbols[sheets[sheet].indices()[row]] = rows[row];
    }
    return std::nullopt;
}

AnalysisOutcome<std::vector<TesseractTextRecognizer::Symbols>>
TesseractTextRecognizer::readSheet(const RecognitionSheet& sheet, TesseractEngine::Layout layout,
                                   const CancellationCheck& isCancelled) const {
    if (isCancelled())
        return {};
    std::unique_ptr<TesseractEngine> engine = m_engines.take();
    if (!engine) {
        auto created = TesseractEngine::create();
        if (const auto* error = std::get_if<AnalysisError>(&created))
            return *error;
        engine = std::get<std::unique_ptr<TesseractEngine>>(std::move(created));
    }
    const auto read = engine->read(sheet.draw(), layout, isCancelled);
    m_engines.giveBack(std::move(engine));
    if (const auto* error = std::get_if<AnalysisError>(&read))
        return *error;
    return sheet.distribute(std::get<Symbols>(read));
}

} // namespace Veilshot
