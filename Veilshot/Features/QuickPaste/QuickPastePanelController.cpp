#include "Veilshot/Features/QuickPaste/QuickPastePanelController.h"

#include "Veilshot/Platform/MainWindowBridge.h"

#include <utility>

namespace Veilshot {

QuickPastePanelController::QuickPastePanelController(QuickPasteSession::Collaborators collaborators,
                                                     MainWindowBridge& mainWindow, QQmlEngine& engine,
                                                     QObject* parent)
    : QObject(parent), m_mainWindow(mainWindow), m_session(std::move(collaborators)),
      m_panel(engine, m_session) {
    connect(&m_session, &QuickPasteSession::completed, this, &QuickPastePanelController::finish);
    connect(&m_session, &QuickPasteSession::cancelled, this, &QuickPastePanelController::cancel);
    connect(&m_panel, &QuickPastePanel::isVisibleChanged, this, &QuickPastePanelController::isVisibleChanged);
    connect(&m_panel, &QuickPastePanel::deactivated, this, &QuickPastePanelController::deactivated);
}

void QuickPastePanelController::show() {
    m_shouldRestoreMainWindow = m_mainWindow.isMainWindowVisible();
    m_mainWindow.hideMainWindow();
    m_session.reset();
    m_panel.orderFront();
    // The panel has to be on the screen before its content comes in.
    QMetaObject::invokeMethod(
        this, [this] { m_session.setShown(true); }, Qt::QueuedConnection);
}

void QuickPastePanelController::finish() {
    m_panel.orderOut();
    // Once the panel is gone.
    QMetaObject::invokeMethod(&m_mainWindow, &MainWindowBridge::presentMainWindow, Qt::QueuedConnection);
}

void QuickPastePanelController::cancel() {
    m_panel.orderOut();
    if (m_shouldRestoreMainWindow)
        m_mainWindow.showMainWindow();
}

} // namespace Veilshot
