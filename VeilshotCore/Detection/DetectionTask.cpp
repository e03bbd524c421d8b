#include "VeilshotCore/Detection/DetectionTask.h"

#include <QPromise>
#include <QThreadPool>
#include <QtConcurrent>
#include <exception>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// A pool of its own: a detection mostly waits for the analyzers' workers, and must neither hold up nor be
/// held up by whatever else the program runs in the global pool.
QThreadPool& detectionPool() {
    static QThreadPool pool;
    return pool;
}

/// The analyzers stand on libraries that throw when memory runs out; nothing may leave the worker.
DetectionOutcome runGuarded(const std::function<DetectionOutcome(const CancellationCheck&)>& detection,
                            const CancellationCheck& isCancelled) {
    try {
        return detection(isCancelled);
    } catch (const std::bad_alloc&) {
        return AnalysisError{u"There is not enough memory to scan this image."_s};
    } catch (const std::exception& error) {
        return AnalysisError{QString::fromUtf8(error.what())};
    }
}

} // namespace

QFuture<DetectionOutcome>
startDetection(std::function<DetectionOutcome(const CancellationCheck&)> detection) {
    return QtConcurrent::run(
        &detectionPool(), [detection = std::move(detection)](QPromise<DetectionOutcome>& promise) {
            DetectionOutcome outcome = runGuarded(detection, [&] { return promise.isCanceled(); });
            promise.addResult(std::move(outcome));
        });
}

} // namespace Veilshot
