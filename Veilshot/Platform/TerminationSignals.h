#pragma once

#include <QObject>

class QSocketNotifier;

namespace Veilshot {

/// Turns the signals that ask a process to end (SIGTERM, SIGINT, SIGHUP) into one of the event loop's, so
/// that what is being saved is finished. One per process; main thread only. Does nothing where there are no
/// such signals.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    explicit TerminationSignals(QObject* parent = nullptr);
    ~TerminationSignals() override;

Q_SIGNALS:
    void received();

private:
    QSocketNotifier* m_notifier = nullptr;
};

} // namespace Veilshot
