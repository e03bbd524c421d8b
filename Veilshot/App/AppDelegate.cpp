#include "Veilshot/App/AppDelegate.h"

#include "Veilshot/App/AppCommands.h"
#include "Veilshot/App/Scenes.h"
#include "Veilshot/Features/Editor/EditorStore.h"
#include "Veilshot/Features/MenuBar/MenuBarView.h"
#include "Veilshot/Features/Onboarding/OnboardingStore.h"
#include "Veilshot/Features/QuickPaste/QuickPastePanelController.h"
#include "Veilshot/Platform/GlobalHotKey.h"
#include "Veilshot/Platform/MainWindowBridge.h"
#include "Veilshot/Platform/TrayHost.h"
#include "Veilshot/Platform/WindowSystem.h"

#include <QApplication>
#include <QQuickWindow>
#include <QUrl>

using namespace std::chrono_literals;

namespace Veilshot {

namespace {

AppDelegate* current = nullptr;

} // namespace

AppDelegate* AppDelegate::shared() {
    return current;
}

AppDelegate::AppDelegate(const Parts& parts, QObject* parent) : QObject(parent), m_parts(parts) {
    current = this;
    m_lastWindowTimer.setSingleShot(true);
    m_lastWindowTimer.setInterval(1500ms);
    connect(&m_lastWindowTimer, &QTimer::timeout, this, &AppDelegate::considerLastWindow);
    m_wayBackTimer.setSingleShot(true);
    m_wayBackTimer.setInterval(5s);
    connect(&m_wayBackTimer, &QTimer::timeout, this, &AppDelegate::considerWaysBack);

    Scenes& scenes = m_parts.scenes;
    connect(&scenes, &Scenes::visibleChanged, this, [this](Scenes::Id id, bool isVisible) {
        if (id == Scenes::Id::main && isVisible)
            m_isMainWindowHeldBack = false;
        followWindow(isVisible);
    });
    connect(&m_parts.trayHost, &TrayHost::isPresentChanged, &m_wayBackTimer, qOverload<>(&QTimer::start));
    connect(&m_parts.onboarding, &OnboardingStore::isCompleteChanged, this, &AppDelegate::finishOnboarding);

    const auto openSettings = [&scenes] { scenes.open(Scenes::Id::settings); };
    const auto quit = [] { QCoreApplication::quit(); };
    const AppCommands& commands = m_parts.commands;
    connect(&commands, &AppCommands::quickPasteRequested, this, &AppDelegate::showQuickPaste);
    connect(&commands, &AppCommands::settingsRequested, this, openSettings);
    connect(&commands, &AppCommands::aboutRequested, this, [&scenes] { scenes.open(Scenes::Id::about); });
    connect(&commands, &AppCommands::quitRequested, this, quit);
    const MenuBarView& menuBar = m_parts.menuBar;
    connect(&menuBar, &MenuBarView::quickPasteRequested, this, &AppDelegate::showQuickPaste);
    connect(&menuBar, &MenuBarView::showWindowRequested, &m_parts.mainWindow,
            &MainWindowBridge::presentMainWindow);
    connect(&menuBar, &MenuBarView::settingsRequested, this, openSettings);
    connect(&menuBar, &MenuBarView::quitRequested, this, quit);
}

AppDelegate::~AppDelegate() {
    current = nullptr;
}

void AppDelegate::applicationDidFinishLaunching() {
    m_quickPastePanel = std::make_unique<QuickPastePanelController>(
        QuickPasteSession::Collaborators{m_parts.store, m_parts.clipboard, m_parts.filePanel,
                                         &QApplication::beep},
        m_parts.mainWindow, m_parts.engine);
    connect(m_quickPastePanel.get(), &QuickPastePanelController::isVisibleChanged, &m_lastWindowTimer,
            qOverload<>(&QTimer::start));
    GlobalHotKey::create(
        this, [this] { showQuickPaste(); },
        [this](std::unique_ptr<GlobalHotKey> hotKey) {
            m_globalHotKey = std::move(hotKey);
            m_shortcut = m_globalHotKey ? WaysBack::Shortcut::working : WaysBack::Shortcut::none;
            m_lastWindowTimer.start();
            if (!m_globalHotKey)
                return;
            m_globalHotKey->whenLost([this] {
                m_shortcut = WaysBack::Shortcut::none;
                m_wayBackTimer.start();
            });
        });
}

void AppDelegate::showQuickPaste() {
    if (!m_parts.onboarding.isComplete()) {
        m_parts.onboarding.countShortcutPress();
        m_parts.mainWindow.presentMainWindow();
        return;
    }
    if (!m_quickPastePanel)
        return;
    // A file dialog would keep the keyboard from the panel.
    if (QWindow* const dialog = QGuiApplication::modalWindow()) {
        WindowSystem::activate(*dialog);
        return;
    }
    if (m_parts.mainWindow.isMainWindowVisible())
        m_isMainWindowHeldBack = true;
    m_quickPastePanel->show();
}

void AppDelegate::carryOut(const WindowRequest& request) {
    switch (request.action) {
    case WindowRequest::Action::openImage:
        m_parts.store.load(QUrl::fromLocalFile(request.image));
        [[fallthrough]];
    case WindowRequest::Action::show:
        if (m_quickPastePanel)
            m_quickPastePanel->panel().orderOut();
        m_parts.mainWindow.presentMainWindow();
        break;
    case WindowRequest::Action::quickPaste:
        showQuickPaste();
        break;
    case WindowRequest::Action::nothingYet:
        break;
    }
}

void AppDelegate::considerLastWindow() {
    if (isAnyWindowVisible())
        return;
    switch (planAfterLastWindow({m_parts.trayHost.isPresent(), m_shortcut, m_isMainWindowHeldBack})) {
    case LastWindowPlan::stay:
    case LastWindowPlan::wait:
        break;
    case LastWindowPlan::showMainWindow:
        m_parts.mainWindow.presentMainWindow();
        break;
    case LastWindowPlan::quit:
        QCoreApplication::quit();
        break;
    }
}

void AppDelegate::considerWaysBack() {
    const WaysBack ways{m_parts.trayHost.isPresent(), m_shortcut, true};
    if (!isAnyWindowVisible() && planAfterLastWindow(ways) == LastWindowPlan::showMainWindow)
        m_parts.mainWindow.presentMainWindow();
}

void AppDelegate::followWindow(bool isVisible) {
    if (isVisible)
        return;
    m_lastWindowTimer.start();
    // The window that closed may have taken the keyboard from the panel.
    if (m_quickPastePanel && m_quickPastePanel->isVisible())
        WindowSystem::activate(m_quickPastePanel->panel().window());
}

bool AppDelegate::isAnyWindowVisible() const {
    return m_parts.scenes.isAnyVisible() || (m_quickPastePanel && m_quickPastePanel->isVisible());
}

void AppDelegate::finishOnboarding() {
    m_parts.scenes.open(Scenes::Id::main);
    m_parts.scenes.window(Scenes::Id::onboarding).close();
    // Once the windows have changed places.
    QMetaObject::invokeMethod(&m_parts.mainWindow, &MainWindowBridge::showMainWindow, Qt::QueuedConnection);
}

} // namespace Veilshot
