#include "Veilshot/Features/Editor/ScanTask.h"

#include "Veilshot/Platform/FutureOutcome.h"

namespace Veilshot {

ScanTask::ScanTask(QImage bitmap, Detection text, Detection people, QObject* parent)
    : QObject(parent), m_bitmap(std::move(bitmap)), m_text(std::move(text)), m_people(std::move(people)) {}

ScanTask::~ScanTask() {
    m_running.cancel();
}

void ScanTask::Canceller::operator()(ScanTask* task) const {
    task->m_isCancelled = true;
    task->m_running.cancel();
    task->deleteLater();
}

void ScanTask::start() {
    run(m_text, &ScanTask::textFound, [this] { run(m_people, &ScanTask::peopleFound, [] {}); });
}

void ScanTask::run(const Detection& detection, Signal found, std::function<void()> next) {
    m_running = detection(m_bitmap);
    whenDone(m_running, this, [this, found, next = std::move(next)](const DetectionOutcome& outcome) {
        if (m_isCancelled)
            return;
        if (const auto* error = std::get_if<AnalysisError>(&outcome)) {
            Q_EMIT failed(error->message);
            return;
        }
        Q_EMIT(this->*found)(std::get<SensitiveRegions>(outcome));
        // Whoever heard of it may have cancelled the rest.
        if (!m_isCancelled)
            next();
    });
}

} // namespace Veilshot
