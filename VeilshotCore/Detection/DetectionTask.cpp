#include "VeilshotCore/Detection/DetectionTask.h"

#include <QCoreApplication>
#include <QException>
#include <QPromise>
#include <QThreadPool>
#include <atomic>
#include <cstdlib>
#include <memory>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

std::atomic<bool> isApplicationEnding = false;

/// How many detections run at once. Far more than anybody starts, so that some that hang do not keep others
/// from running.
constexpr int mostDetections = 64;
/// How long the end of the process waits for a detection to notice that it is cancelled, in milliseconds.
constexpr int longestWait = 10'000;

/// A pool of its own: a detection mostly waits for the analyzers' workers, and must neither hold up nor be
/// held up by whatever else the program runs in the global pool.
QThreadPool& detectionPool() {
    static QThreadPool& instance = []() -> QThreadPool& {
        // A detection that still runs must not see the process's objects go one after the other.
        qAddPostRoutine([] {
            isApplicationEnding = true;
            detectionPool().clear();
            // One that hangs would see its objects go; without them the process just ends.
            if (!detectionPool().waitForDone(longestWait))
                std::_Exit(EXIT_FAILURE);
        });
        auto& pool = *new QThreadPool;
        pool.setMaxThreadCount(mostDetections);
        return pool;
    }();
    return instance;
}

/// What was thrown by work in a pool, without the exception that Qt wraps around it on the way to the caller.
std::exception_ptr withoutQtWrapper(const std::exception_ptr& thrown) {
    try {
        std::rethrow_exception(thrown);
    } catch (const QUnhandledException& wrapper) {
        return wrapper.exception() ? wrapper.exception() : thrown;
    } catch (...) {
        return thrown;
    }
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

/// The analyzers and the libraries that they stand on may throw; nothing may leave the worker.
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
    // Not QtConcurrent::run: who waits for its future may be handed the queued work to run himself.
    const auto promise = std::make_shared<QPromise<DetectionOutcome>>();
    promise->start();
    detectionPool().start([promise, detection = std::move(detection)] {
        if (!promise->isCanceled())
            promise->addResult(
                runGuarded(detection, [&] { return promise->isCanceled() || isApplicationEnding; }));
        promise->finish();
    });
    return promise->future();
}

} // namespace Veilshot
