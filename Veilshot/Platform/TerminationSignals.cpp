#include "Veilshot/Platform/TerminationSignals.h"

#ifdef Q_OS_UNIX

#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <unistd.h>

namespace Veilshot {

namespace {

constexpr std::array signalNumbers{SIGTERM, SIGINT, SIGHUP};

std::array<int, 2> wakeUp{-1, -1}; // a handler may do little more than write to a pipe

void handle(int) {
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(wakeUp[1], &byte, 1);
}

void setHandler(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int number : signalNumbers)
        ::sigaction(number, &action, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals(QObject* parent) : QObject(parent) {
    if (::pipe(wakeUp.data()) != 0)
        return;
    m_notifier = new QSocketNotifier(wakeUp[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        m_notifier->setEnabled(false);
        setHandler(SIG_DFL); // a second one ends what does not end
        Q_EMIT received();
    });
    setHandler(handle);
}

TerminationSignals::~TerminationSignals() {
    if (!m_notifier)
        return;
    setHandler(SIG_DFL);
    delete m_notifier;
    ::close(wakeUp[0]);
    ::close(wakeUp[1]);
}

} // namespace Veilshot

#else

namespace Veilshot {

TerminationSignals::TerminationSignals(QObject* parent) : QObject(parent) {}

TerminationSignals::~TerminationSignals() = default;

} // namespace Veilshot

#endif
