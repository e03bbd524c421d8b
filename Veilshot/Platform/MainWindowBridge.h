#pragma once

#include <QLatin1StringView>
#include <QObject>
#include <functional>

class QWindow;

namespace Veilshot {

/// Finds, shows and raises the main window, or the walkthrough's as long as that has not been finished.
/// Windows are known by their object names. For the main thread.
class MainWindowBridge : public QObject {
    Q_OBJECT

public:
    static constexpr QLatin1StringView identifier{"Veilshot.MainWindow"};
    static constexpr QLatin1StringView onboardingIdentifier{"Veilshot.Onboarding"};

    /// `isOnboardingComplete` is asked at every call. `openWindowAction` makes the main window, or the
    /// walkthrough's, when there is none to show; it may be empty.
    explicit MainWindowBridge(std::function<bool()> isOnboardingComplete,
                              std::function<void()> openWindowAction = {}, QObject* parent = nullptr);

    /// False also while it is minimized.
    bool isMainWindowVisible() const;
    /// Takes the main window off the screen without closing it, if it is visible.
    void hideMainWindow();

    /// Brings the window back from wherever it is: hidden, minimized, behind others. False if there is none.
    bool showMainWindow();
    /// The same, after making the window if there is none. A new window is raised in the next turn of the
    /// event loop.
    void presentMainWindow();

private:
    QWindow* mainWindow() const;
    QWindow* target() const;

    std::function<bool()> m_isOnboardingComplete;
    std::function<void()> m_openWindowAction;
};

} // namespace Veilshot
