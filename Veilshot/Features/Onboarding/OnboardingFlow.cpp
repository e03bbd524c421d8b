#include "Veilshot/Features/Onboarding/OnboardingFlow.h"

using namespace Qt::StringLiterals;

namespace Veilshot {

QString OnboardingFlow::primaryTitle() const {
    switch (m_step) {
    case OnboardingStep::Welcome:
        return u"Get Started"_s;
    case OnboardingStep::Ready:
        return u"Open Veilshot"_s;
    default:
        return u"Continue"_s;
    }
}

void OnboardingFlow::advance() {
    if (const auto target = next(m_step))
        goTo(*target);
    else
        Q_EMIT finished();
}

void OnboardingFlow::goBack() {
    if (const auto target = previous(m_step))
        goTo(*target);
}

void OnboardingFlow::goTo(OnboardingStep target) {
    const bool isMovingForward = m_step < target;
    if (isMovingForward != m_isMovingForward) {
        m_isMovingForward = isMovingForward;
        Q_EMIT isMovingForwardChanged();
    }
    // A turn later, so that both pages know the direction when one gives way to the other.
    const auto go = [this, target] {
        if (target == m_step)
            return;
        m_step = target;
        Q_EMIT stepChanged();
    };
    QMetaObject::invokeMethod(this, go, Qt::QueuedConnection);
}

} // namespace Veilshot
