#pragma once

#include <QObject>
#include <QtQmlIntegration>
#include <optional>

namespace Veilshot {

namespace OnboardingSteps {

Q_NAMESPACE
QML_NAMED_ELEMENT(OnboardingStep)

/// The pages of the walkthrough in their order.
enum class Step { Welcome, Detection, Privacy, QuickPaste, Ready };
Q_ENUM_NS(Step)

inline constexpr int count = 5;

} // namespace OnboardingSteps

using OnboardingStep = OnboardingSteps::Step;

/// The page with this place in the order, from 0; nothing outside.
constexpr std::optional<OnboardingStep> onboardingStep(int rawValue) {
    if (rawValue < 0 || rawValue >= OnboardingSteps::count)
        return std::nullopt;
    return OnboardingStep(rawValue);
}

constexpr std::optional<OnboardingStep> previous(OnboardingStep step) {
    return onboardingStep(int(step) - 1);
}
constexpr std::optional<OnboardingStep> next(OnboardingStep step) {
    return onboardingStep(int(step) + 1);
}

} // namespace Veilshot
