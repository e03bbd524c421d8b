#include "Veilshot/Features/Onboarding/OnboardingStore.h"

#include "Veilshot/Platform/UserDefaults.h"

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

const QString completedKey = u"onboardingCompleted"_s;

} // namespace

OnboardingStore::OnboardingStore(UserDefaults& defaults, QObject* parent)
    : QObject(parent), m_defaults(defaults), m_isComplete(defaults.boolean(completedKey).value_or(false)) {}

OnboardingStore& OnboardingStore::shared() {
    static OnboardingStore& instance = *new OnboardingStore(UserDefaults::standard());
    return instance;
}

void OnboardingStore::complete() {
    m_defaults.setBoolean(completedKey, true);
    if (m_isComplete)
        return;
    m_isComplete = true;
    Q_EMIT isCompleteChanged();
}

void OnboardingStore::countShortcutPress() {
    ++m_shortcutPressCount;
    Q_EMIT shortcutPressCountChanged();
}

} // namespace Veilshot
