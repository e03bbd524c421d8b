#pragma once

#include "Veilshot/App/LastWindow.h"
#include "Veilshot/App/WindowRequest.h"

#include <QObject>
#include <QTimer>
#include <memory>

class QQmlEngine;

namespace Veilshot {

class AppCommands;
class Clipboard;
class EditorStore;
class FilePanel;
class GlobalHotKey;
class MainWindowBridge;
class MenuBarView;
class OnboardingStore;
class QuickPastePanelController;
class Scenes;
class TrayHost;

/// Acts on what reaches the application from outside its windows: starts of the program, the global shortcut,
/// the menu-bar item, the end of the last window. Main thread only.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    /// All must outlive it.
    struct Parts {
        EditorStore& store;
        OnboardingStore& onboarding;
        const Clipboard& clipboard;
        FilePanel& filePanel;
        QQmlEngine& engine;
        Scenes& scenes;
        MainWindowBridge& mainWindow;
        TrayHost& trayHost;
        MenuBarView& menuBar;
        AppCommands& commands;
    };

    /// The one that there is; null without.
    static AppDelegate* shared();

    explicit AppDelegate(const Parts& parts, QObject* parent = nullptr);
    ~AppDelegate() override;

    /// Makes the quick-paste panel and registers the global shortcut. Without the shortcut everything else
    /// works.
    void applicationDidFinishLaunching();

    /// The panel; until the walkthrough is finished, that instead, which counts the attempt.
    void showQuickPaste();
    /// What a start asked for, the first one or a later one.
    void carryOut(const WindowRequest& request);

private:
    void considerLastWindow();
    /// The tray or the shortcut is gone.
    void considerWaysBack();
    void followWindow(bool isVisible);
    bool isAnyWindowVisible() const;
    void finishOnboarding();

    Parts m_parts;
    std::unique_ptr<QuickPastePanelController> m_quickPastePanel;
    std::unique_ptr<GlobalHotKey> m_globalHotKey;
    WaysBack::Shortcut m_shortcut = WaysBack::Shortcut::pending;
    /// The panel took it off the screen, and it has not been back since.
    bool m_isMainWindowHeldBack = false;
    /// Windows replace one another: what looks like the last one's end is looked at again after a moment, in
    /// which a tray is found, too.
    QTimer m_lastWindowTimer;
    /// Trays and portals start anew.
    QTimer m_wayBackTimer;
};

} // namespace Veilshot
