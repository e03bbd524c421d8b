#pragma once

#include "VeilshotCore/Detection/DetectionTask.h"

#include <QFuture>
#include <QImage>
#include <QObject>
#include <QString>
#include <functional>
#include <memory>

namespace Veilshot {

/// Looks through a bitmap in the background.
using Detection = std::function<QFuture<DetectionOutcome>(const QImage& bitmap)>;

/// The scan of one image: first its text, then its people. It tells what it finds in the main thread, from
/// the event loop, and ends with `peopleFound` or `failed`, or silently if a detection is cancelled.
class ScanTask : public QObject {
    Q_OBJECT

public:
    /// Cancels, for a task that may be in the middle of telling something.
    struct Canceller {
        void operator()(ScanTask* task) const;
    };
    using Handle = std::unique_ptr<ScanTask, Canceller>;

    ScanTask(QImage bitmap, Detection text, Detection people, QObject* parent);
    ~ScanTask() override;

    void start();

Q_SIGNALS:
    void textFound(const Veilshot::SensitiveRegions& regions);
    void peopleFound(const Veilshot::SensitiveRegions& regions);
    void failed(const QString& message);

private:
    using Signal = void (ScanTask::*)(const SensitiveRegions&);
    void run(const Detection& detection, Signal found, std::function<void()> next);

    QImage m_bitmap;
    Detection m_text;
    Detection m_people;
    QFuture<DetectionOutcome> m_running;
    bool m_isCancelled = false;
};

} // namespace Veilshot
