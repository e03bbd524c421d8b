#pragma once

#include "Veilshot/App/LastWindow.h"
#include "Veilshot/App/WindowRequest.h"

#include <QObject>
#include <QTimer>

namespace Veilshot {

class AppCommands;
class EditorStore;
class MainWindowBridge;
class Scenes;

/// Acts on what reaches the application from outside its windows: starts of the program, the global shortcut,
/// the menu-bar item, the end of the last window. For the main thread.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    /// All must outlive it.
    struct Parts {
        EditorStore& store;
        Scenes& scenes;
        MainWindowBridge& mainWindow;
    };

    /// The one that has launched; null before and after.
    static AppDelegate* shared();

    explicit AppDelegate(const Parts& parts, QObject* parent = nullptr);
    ~AppDelegate() override;

    /// Follows the commands of the windows.
    void follow(const AppCommands& commands);

    void showQuickPaste();
    /// What a start asked for, the first one or a later one.
    void carryOut(const WindowRequest& request);

private:
    void considerLastWindow();

    Parts m_parts;
    /// Windows replace one another: what looks like the last one's end is looked at again after a moment.
    QTimer m_lastWindowTimer;
};

} // namespace Veilshot
