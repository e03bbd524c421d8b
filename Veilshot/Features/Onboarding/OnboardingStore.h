#pragma once

#include <QObject>
#include <QtQmlIntegration>

namespace Veilshot {

class UserDefaults;

/// Whether the first-run walkthrough was finished, and what the user tried during it. Main thread only.
class OnboardingStore : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application has one walkthrough.")
    Q_PROPERTY(bool isComplete READ isComplete NOTIFY isCompleteChanged)
    Q_PROPERTY(int shortcutPressCount READ shortcutPressCount NOTIFY shortcutPressCountChanged)

public:
    /// Not complete unless the defaults say so under "onboardingCompleted". They must outlive the store.
    explicit OnboardingStore(UserDefaults& defaults, QObject* parent = nullptr);

    /// The application's own, made on first use. It lives as long as the process.
    static OnboardingStore& shared();

    bool isComplete() const { return m_isComplete; }
    /// Written to the defaults before anyone hears of it.
    Q_INVOKABLE void complete();

    /// How often the global shortcut was pressed while there was the walkthrough to answer it. Every start
    /// begins with 0.
    int shortcutPressCount() const { return m_shortcutPressCount; }
    void countShortcutPress();

Q_SIGNALS:
    void isCompleteChanged();
    void shortcutPressCountChanged();

private:
    UserDefaults& m_defaults;
    bool m_isComplete;
    int m_shortcutPressCount = 0;
};

} // namespace Veilshot
