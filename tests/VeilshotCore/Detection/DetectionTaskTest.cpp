#include "VeilshotCore/Detection/DetectionTask.h"

#include <QSemaphore>
#include <QThread>
#include <gmock/gmock.h>

namespace Veilshot {
namespace {

TEST(DetectionTask, RunsBesideDetectionsThatHang) {
    QSemaphore release;
    const int hanging = QThread::idealThreadCount() + 2;
    std::vector<QFuture<DetectionOutcome>> hung;
    for (int i = 0; i < hanging; ++i)
        hung.push_back(startDetection([&](const CancellationCheck&) {
            release.acquire();
            return SensitiveRegions();
        }));
    auto healthy = startDetection([](const CancellationCheck&) { return AnalysisError{}; });
    EXPECT_TRUE(std::holds_alternative<AnalysisError>(healthy.takeResult()));
    release.release(hanging);
    for (auto& detection : hung)
        detection.waitForFinished();
}

} // namespace
} // namespace Veilshot
