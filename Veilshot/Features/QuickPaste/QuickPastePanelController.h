#pragma once

#include "Veilshot/Features/QuickPaste/QuickPastePanel.h"
#include "Veilshot/Features/QuickPaste/QuickPasteSession.h"

#include <QObject>

class QQmlEngine;

namespace Veilshot {

class MainWindowBridge;

/// Opens the quick-paste panel in place of the main window, and closes it again. One per application; main
/// thread only.
class QuickPastePanelController : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isVisible READ isVisible NOTIFY isVisibleChanged)

public:
    /// All of it must outlive the controller. See QuickPastePanel for the engine.
    QuickPastePanelController(QuickPasteSession::Collaborators collaborators, MainWindowBridge& mainWindow,
                              QQmlEngine& engine, QObject* parent = nullptr);

    bool isVisible() const { return m_panel.isVisible(); }
    /// Whether the main window was visible when the panel was last shown, which hid it. Cancelling brings it
    /// back then.
    bool shouldRestoreMainWindow() const { return m_shouldRestoreMainWindow; }

    void show();

    QuickPasteSession& session() { return m_session; }
    QuickPastePanel& panel() { return m_panel; }

Q_SIGNALS:
    void isVisibleChanged();
    /// The panel went because another application was chosen. The main window stays hidden.
    void deactivated();

private:
    void finish();
    void cancel();

    MainWindowBridge& m_mainWindow;
    QuickPasteSession m_session;
    QuickPastePanel m_panel;
    bool m_shouldRestoreMainWindow = false;
};

} // namespace Veilshot
