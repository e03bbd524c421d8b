#include "VeilshotCore/Detection/DetectionTask.h"

#include "VeilshotCore/Analysis/AnalysisPool.h"

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

AnalysisError failureMessage(const std::exception_ptr& thrown) {
    try {
        std::rethrow_exception(withoutQtWrapper(thrown));
    } catch (const std::bad_alloc&) {
        return {u"There is not enough memory to scan this image."_s};
    } catch (const std::exception& exception) {
        return {u"This image could not be scanned (%1)."_s.arg(
            QString::fromLocal8Bit(exception.what()).simplified())};
    } catch (...) {
        return {u"This image could not be scanned."_s};
    }
}

/// The analyzers stand on libraries that throw when memory runs out; nothing may leave the worker.
DetectionOutcome runGuarded(const std::function<DetectionOutcome(const CancellationCheck&)>& detection,
                            const CancellationCheck& isCancelled) {
    try {
        return detection(isCancelled);
    } catch (...) {
        return failureMessage(std::current_exception());
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
