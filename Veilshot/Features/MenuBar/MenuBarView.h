#pragma once

#include "Veilshot/Features/MenuBar/MenuBarEntry.h"

#include <QObject>
#include <memory>

class QMenu;
class QSystemTrayIcon;

namespace Veilshot {

class TrayHost;

/// The menu bar item: an icon in the desktop's tray with a menu over the editing session. The menu follows
/// the store at once, also while it is open. Copying is done here; the other commands are signals, and a
/// click on the icon is `showWindowRequested`. Main thread only; needs a QApplication.
class MenuBarView : public QObject {
    Q_OBJECT

public:
    /// The icon appears when the host is there, which may be later, or never. Both must outlive the view.
    MenuBarView(EditorStore& store, const TrayHost& host, QObject* parent = nullptr);
    ~MenuBarView() override;

Q_SIGNALS:
    void quickPasteRequested();
    void showWindowRequested();
    void settingsRequested();
    void quitRequested();

private:
    using Command = MenuBarEntry::Command;

    void updateMenu();
    void carryOut(Command command);
    void updateIcon();

    EditorStore& m_store;
    const TrayHost& m_host;
    std::unique_ptr<QMenu> m_menu;
    /// What the menu shows, one for each of its actions.
    std::vector<MenuBarEntry> m_entries;
    std::unique_ptr<QSystemTrayIcon> m_icon;
};

} // namespace Veilshot
