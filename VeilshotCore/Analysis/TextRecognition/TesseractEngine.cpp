#include "VeilshotCore/Analysis/TextRecognition/TesseractEngine.h"

#include <QFile>
#include <QProcess>
#include <algorithm>
#include <array>
#include <omp.h>
#include <string>
#include <tesseract/baseapi.h>
#include <tesseract/ocrclass.h>
#include <tesseract/resultiterator.h>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

struct Language {
    const char* code;
    QLatin1StringView name;
    QLatin1StringView package;
};

/// Danish first: it reads æ, ø and å, and what it cannot read (@) makes the engine ask English. The other way
/// round more Danish letters are lost and fewer signs won.
constexpr std::array languages{Language{"dan", "Danish"_L1, "tesseract-ocr-dan"_L1},
                               Language{"eng", "English"_L1, "tesseract-ocr-eng"_L1}};

AnalysisError missingLanguage(const Language& language) {
    return {u"Text recognition has no data for %1. Install the package “%2”."_s.arg(language.name,
                                                                                    language.package)};
}

/// Tesseract's OpenMP threads fight over small images. This is the only switch that works from inside the
/// process, and only for the thread that calls it.
void keepOpenMpOff() {
    omp_set_max_active_levels(0);
}

std::vector<TesseractEngine::Symbol> symbolsOf(tesseract::TessBaseAPI& api) {
    std::vector<TesseractEngine::Symbol> symbols;
    const std::unique_ptr<tesseract::ResultIterator> result(api.GetIterator());
    if (!result || result->Empty(tesseract::RIL_SYMBOL))
        return symbols;
    do {
        const std::unique_ptr<const char[]> text(result->GetUTF8Text(tesseract::RIL_SYMBOL));
        int left = 0, top = 0, right = 0, bottom = 0;
        if (text && result->BoundingBox(tesseract::RIL_SYMBOL, &left, &top, &right, &bottom))
            symbols.push_back({QString::fromUtf8(text.get()), QRectF(left, top, right - left, bottom - top),
                               result->IsAtBeginningOf(tesseract::RIL_WORD)});
    } while (result->Next(tesseract::RIL_SYMBOL));
    return symbols;
}

/// Its own messages would mix with the program's output; missing language data is one of them. The setting
/// belongs to the process and is no matter for several threads.
void keepMessagesOff() {
    static const bool isOff = tesseract::TessBaseAPI().SetVariable(
        "debug_file", QFile::encodeName(QProcess::nullDevice()).constData());
    Q_UNUSED(isOff)
}

bool shouldStop(void* isCancelled, int) {
    return (*static_cast<const CancellationCheck*>(isCancelled))();
}

} // namespace

struct TesseractEngine::Api {
    tesseract::TessBaseAPI tesseract;
};

TesseractEngine::TesseractEngine(std::unique_ptr<Api> api) : m_api(std::move(api)) {}

TesseractEngine::~TesseractEngine() = default;

AnalysisOutcome<std::unique_ptr<TesseractEngine>> TesseractEngine::create() {
    keepOpenMpOff();
    keepMessagesOff();
    auto api = std::make_unique<Api>();
    const std::string codes = std::string(languages[0].code) + "+" + languages[1].code;
    const int failure = api->tesseract.Init(nullptr, codes.c_str(), tesseract::OEM_LSTM_ONLY);
    std::vector<std::string> loaded;
    if (failure == 0)
        api->tesseract.GetLoadedLanguagesAsVector(&loaded);
    for (const Language& language : languages) {
        if (std::ranges::find(loaded, language.code) == loaded.end())
            return missingLanguage(language);
    }
    // Pages are always dark on white; trying every doubtful line in negative only costs time.
    api->tesseract.SetVariable("tessedit_do_invert", "0");
    return std::unique_ptr<TesseractEngine>(new TesseractEngine(std::move(api)));
}

AnalysisOutcome<std::vector<TesseractEngine::Symbol>>
TesseractEngine::read(const QImage& page, Layout layout, const CancellationCheck& isCancelled) {
    keepOpenMpOff();
    tesseract::TessBaseAPI& api = m_api->tesseract;
    api.SetPageSegMode(layout == Layout::column ? tesseract::PSM_SINGLE_BLOCK : tesseract::PSM_SINGLE_LINE);
    api.SetImage(page.constBits(), page.width(), page.height(), 1, static_cast<int>(page.bytesPerLine()));
    api.SetSourceResolution(96);
    tesseract::ETEXT_DESC monitor;
    monitor.cancel = shouldStop;
    monitor.cancel_this = const_cast<CancellationCheck*>(&isCancelled);
    const bool isRead = api.Recognize(&monitor) == 0;
    std::vector<Symbol> symbols = isRead ? symbolsOf(api) : std::vector<Symbol>();
    api.Clear(); // the page is somebody's screenshot: nothing of it stays behind in a warm engine
    if (!isRead && !isCancelled())
        return AnalysisError{u"The text of this image could not be read."_s};
    return symbols;
}

} // namespace Veilshot
