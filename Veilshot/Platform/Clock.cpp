#include "Veilshot/Platform/Clock.h"

#include <QTimer>

namespace Veilshot {

QDateTime SystemClock::now() const {
    return QDateTime::currentDateTimeUtc();
}

void SystemClock::callAfter(std::chrono::milliseconds delay, QObject* context,
                            std::function<void()> call) const {
    QTimer::singleShot(delay, context, std::move(call));
}

} // namespace Veilshot
