#include "Veilshot/Platform/MainWindowBridge.h"

#include "Veilshot/Platform/WindowSystem.h"

#include <QGuiApplication>
#include <QWindow>
#include <algorithm>

namespace Veilshot {

namespace {

QWindow* findWindow(const std::function<bool(const QWindow*)>& isWanted) {
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const auto found = std::ranges::find_if(windows, isWanted);
    return found == windows.end() ? nullptr : *found;
}

QWindow* windowNamed(QLatin1StringView identifier) {
    return findWindow([&](const QWindow* window) { return window->objectName() == identifier; });
}

} // namespace

MainWindowBridge::MainWindowBridge(std::function<bool()> isOnboardingComplete,
                                   std::function<void()> openWindowAction, QObject* parent)
    : QObject(parent), m_isOnboardingComplete(std::move(isOnboardingComplete)),
      m_openWindowAction(std::move(openWindowAction)) {}

bool MainWindowBridge::isMainWindowVisible() const {
    const QWindow* const window = mainWindow();
    return window && window->isVisible() && !window->windowStates().testFlag(Qt::WindowMinimized);
}

void MainWindowBridge::hideMainWindow() {
    if (isMainWindowVisible())
        mainWindow()->hide();
}

bool MainWindowBridge::showMainWindow() {
    QWindow* const window = target();
    if (!window)
        return false;
    WindowSystem::present(*window);
    return true;
}

void MainWindowBridge::presentMainWindow() {
    if (showMainWindow())
        return;
    if (m_openWindowAction)
        m_openWindowAction();
    QMetaObject::invokeMethod(this, &MainWindowBridge::showMainWindow, Qt::QueuedConnection);
}

QWindow* MainWindowBridge::mainWindow() const {
    return windowNamed(identifier);
}

QWindow* MainWindowBridge::target() const {
    return m_isOnboardingComplete() ? mainWindow() : windowNamed(onboardingIdentifier);
}

} // namespace Veilshot
