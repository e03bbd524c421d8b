#pragma once

#include "Veilshot/Features/Onboarding/OnboardingStep.h"

#include <QObject>
#include <QtQmlIntegration>

namespace Veilshot {

/// Which page of the walkthrough is shown, and how one gives way to another. It starts with the first one.
class OnboardingFlow : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Veilshot::OnboardingStep step READ step NOTIFY stepChanged)
    /// How many pages there are.
    Q_PROPERTY(int count MEMBER count CONSTANT)
    Q_PROPERTY(bool hasPrevious READ hasPrevious NOTIFY stepChanged)
    /// The label of the button that advances.
    Q_PROPERTY(QString primaryTitle READ primaryTitle NOTIFY stepChanged)
    Q_PROPERTY(bool isMovingForward READ isMovingForward NOTIFY isMovingForwardChanged)
    /// How far beside its place a page is when it begins to come, and when it has gone: to the right if
    /// positive.
    Q_PROPERTY(double insertionOffset READ insertionOffset NOTIFY isMovingForwardChanged)
    Q_PROPERTY(double removalOffset READ removalOffset NOTIFY isMovingForwardChanged)

public:
    using QObject::QObject;

    OnboardingStep step() const { return m_step; }
    bool hasPrevious() const { return previous(m_step).has_value(); }
    QString primaryTitle() const;
    bool isMovingForward() const { return m_isMovingForward; }
    double insertionOffset() const { return m_isMovingForward ? travel : -travel; }
    double removalOffset() const { return -insertionOffset(); }

    /// To the next page; from the last one, to the end of the walkthrough.
    Q_INVOKABLE void advance();
    /// To the page before, if there is one.
    Q_INVOKABLE void goBack();

Q_SIGNALS:
    void stepChanged();
    void isMovingForwardChanged();
    void finished();

private:
    static constexpr double travel = 40;

    void goTo(OnboardingStep target);

    const int count = OnboardingSteps::count;
    OnboardingStep m_step = OnboardingStep::Welcome;
    bool m_isMovingForward = true;
};

} // namespace Veilshot
