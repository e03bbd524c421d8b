#include "Veilshot/App/ScanCommand.h"

#include "Veilshot/App/CommandLine.h"
#include "Veilshot/App/OutputPlan.h"
#include "Veilshot/App/RegionsFile.h"
#include "Veilshot/App/ScanReport.h"
#include "Veilshot/App/StandardStreams.h"
#include "Veilshot/Platform/AtomicFile.h"
#include "Veilshot/Platform/ImageDecoder.h"
#include "Veilshot/Platform/PngFile.h"
#include "Veilshot/Platform/RegularFile.h"
#include "VeilshotCore/Detection/PeopleDetector.h"
#include "VeilshotCore/Detection/SensitiveTextDetector.h"
#include "VeilshotCore/Rendering/ScreenshotRedactor.h"

#include <QDir>
#include <QElapsedTimer>
#include <QThreadPool>
#include <QtConcurrent>
#include <algorithm>
#include <new>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

using ScanOutcome = std::variant<ScanReport, QString>;

/// Everything that the images of one command have in common.
struct Scan {
    const ScanRequest& request;
    SensitiveRegions ownRegions; ///< from the regions file
    SensitiveTextDetector textDetector;
    PeopleDetector peopleDetector;
    ScreenshotRedactor redactor;
};

bool isWanted(const ScanRequest& request, SensitiveKind kind) {
    return request.kinds.contains(kind);
}

bool isAnyTextWanted(const ScanRequest& request) {
    return std::ranges::any_of(request.kinds, [](SensitiveKind kind) {
        return kind != SensitiveKind::person && kind != SensitiveKind::custom;
    });
}

DecodedImage decode(const QString& image) {
    if (image != standardStream)
        return ImageDecoder::decodeFile(image);
    return ImageDecoder::decodeBytes(StandardStreams::readInput(ImageDecoder::maximumFileSize),
                                     u"standard input"_s);
}

/// Text regions first, then people, then the areas given by hand.
DetectionOutcome findRegions(const Scan& scan, const QImage& bitmap) {
    QList<QFuture<DetectionOutcome>> detections;
    if (isAnyTextWanted(scan.request))
        detections.push_back(scan.textDetector.detect(bitmap));
    if (isWanted(scan.request, SensitiveKind::person))
        detections.push_back(scan.peopleDetector.detect(bitmap));
    SensitiveRegions regions;
    std::optional<AnalysisError> failure;
    for (QFuture<DetectionOutcome>& detection : detections) {
        const DetectionOutcome outcome = detection.takeResult();
        if (const auto* error = std::get_if<AnalysisError>(&outcome))
            failure = failure.value_or(*error);
        else
            std::ranges::copy(std::get<SensitiveRegions>(outcome), std::back_inserter(regions));
    }
    if (failure)
        return *failure;
    std::ranges::copy(scan.ownRegions, std::back_inserter(regions));
    std::erase_if(regions,
                  [&](const SensitiveRegion& region) { return !isWanted(scan.request, region.kind()); });
    return regions;
}

/// Nothing, or why the protected copy could not be written.
std::optional<QString> writeProtected(const Scan& scan, const QImage& bitmap, const ScanReport& report,
                                      const QString& output) {
    const QImage rendered =
        scan.redactor.render(bitmap, report.regions, scan.request.style, scan.request.intensity);
    const QByteArray png = rendered.isNull() ? QByteArray() : PngFile::encodePng(rendered);
    if (png.isEmpty())
        return u"%1: the protected image could not be made; there may be too little memory"_s.arg(
            report.image);
    if (output == standardStream)
        return StandardStreams::writeOutput(png)
                   ? std::nullopt
                   : std::optional(u"%1: the protected image could not be written to standard output"_s.arg(
                         report.image));
    return writeAtomically(output, png, Readership::asUsual);
}

ScanOutcome scanImage(const Scan& scan, const QString& image, const QString& output) {
    QElapsedTimer timer;
    timer.start();
    const DecodedImage decoded = decode(image);
    if (const auto* error = std::get_if<ImageError>(&decoded))
        return error->message;
    const QImage& bitmap = std::get<QImage>(decoded);
    DetectionOutcome found = findRegions(scan, bitmap);
    if (const auto* error = std::get_if<AnalysisError>(&found))
        return u"%1: %2"_s.arg(image, error->message);
    ScanReport report{image, bitmap.size(), timer.nsecsElapsed() / 1e9,
                      std::get<SensitiveRegions>(std::move(found))};
    if (scan.request.action == ScanRequest::Action::protect) {
        if (const auto failure = writeProtected(scan, bitmap, report, output))
            return *failure;
    }
    return report;
}

/// The worker's boundary: a picture near the limit may not fit into memory.
ScanOutcome scanImageGuarded(const Scan& scan, const QString& image, const QString& output) {
    try {
        return scanImage(scan, image, output);
    } catch (const std::bad_alloc&) {
        return u"%1: there is not enough memory for this image"_s.arg(image);
    } catch (const std::exception& exception) {
        return u"%1: %2"_s.arg(image, QString::fromLocal8Bit(exception.what()));
    }
}

/// One line that is written anew as images are done; silent unless a person watches.
class ProgressLine {
public:
    explicit ProgressLine(qsizetype total)
        : m_total(total), m_isShown(total > 1 && StandardStreams::isErrorTerminal()) {}
    ~ProgressLine() { clear(); }

    void show(qsizetype done) const {
        if (m_isShown)
            StandardStreams::writeError(u"\r\033[KScanned %1 of %2 images…"_s.arg(done).arg(m_total));
    }

    void clear() const {
        if (m_isShown)
            StandardStreams::writeError(u"\r\033[K"_s);
    }

private:
    qsizetype m_total;
    bool m_isShown;
};

std::variant<SensitiveRegions, QString> readRegions(const QString& path) {
    constexpr qint64 largestFile = 16'000'000;
    if (path.isEmpty())
        return SensitiveRegions();
    const auto bytes = readRegularFile(path, largestFile);
    if (const auto* reason = std::get_if<QString>(&bytes))
        return u"%1: %2"_s.arg(path, *reason);
    auto regions = parseRegions(std::get<QByteArray>(bytes));
    if (const auto* mistake = std::get_if<QString>(&regions))
        return u"%1: %2"_s.arg(path, *mistake);
    return regions;
}

int refuse(const QString& reason) {
    StandardStreams::writeErrorLine(reason);
    return exitWrongUsage;
}

/// Reports in the order of the images, each as soon as it and those before it are done.
int reportAll(const ScanRequest& request, QList<QFuture<ScanOutcome>>& scans) {
    const ProgressLine progress(scans.size());
    int exitCode = exitDone;
    for (qsizetype index = 0; index < scans.size(); ++index) {
        progress.show(index);
        const ScanOutcome outcome = scans[index].takeResult();
        progress.clear();
        if (const auto* failure = std::get_if<QString>(&outcome)) {
            StandardStreams::writeErrorLine(*failure);
            exitCode = exitSomeImageFailed;
            continue;
        }
        const auto& report = std::get<ScanReport>(outcome);
        bool isWritten = true;
        if (request.isJsonReportWanted)
            isWritten = StandardStreams::writeOutput(toJson(report) + '\n');
        else if (request.output != standardStream)
            isWritten =
                StandardStreams::writeOutput(StandardStreams::printable(summary(report)).toUtf8() + '\n');
        if (!isWritten) {
            StandardStreams::writeErrorLine(u"%1: the report could not be written"_s.arg(report.image));
            exitCode = exitSomeImageFailed;
        }
    }
    return exitCode;
}

} // namespace

int runScan(const ScanRequest& request) {
    QStringList outputs(request.images.size());
    if (request.action == ScanRequest::Action::protect) {
        auto planned = planOutputs(request);
        if (const auto* mistake = std::get_if<QString>(&planned))
            return refuse(*mistake);
        outputs = std::get<QStringList>(planned);
    }
    auto ownRegions = readRegions(request.regionsFile);
    if (const auto* mistake = std::get_if<QString>(&ownRegions))
        return refuse(*mistake);
    if (!request.outputDirectory.isEmpty() && !QDir().mkpath(request.outputDirectory))
        return refuse(u"%1: the folder cannot be created"_s.arg(request.outputDirectory));

    const Scan scan{request, std::get<SensitiveRegions>(std::move(ownRegions)),
                    SensitiveTextDetector(SensitiveTextDetector::Analyzers::shared(), request.kinds),
                    PeopleDetector(), ScreenshotRedactor()};
    // A scan occupies every core by itself for most of its time; a second one beside it fills the gaps. More
    // would only multiply the bitmaps and engines in memory.
    QThreadPool pool;
    pool.setMaxThreadCount(2);
    QList<QFuture<ScanOutcome>> scans;
    for (qsizetype index = 0; index < request.images.size(); ++index) {
        scans.push_back(
            QtConcurrent::run(&pool, [&scan, image = request.images[index], output = outputs[index]] {
                return scanImageGuarded(scan, image, output);
            }));
    }
    return reportAll(request, scans);
}

} // namespace Veilshot
