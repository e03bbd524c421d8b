#include "Veilshot/App/AppDelegate.h"

#include "Veilshot/App/AppCommands.h"
#include "Veilshot/App/Scenes.h"
#include "Veilshot/Features/Editor/EditorStore.h"
#include "Veilshot/Platform/MainWindowBridge.h"

#include <QCoreApplication>
#include <QUrl>

using namespace std::chrono_literals;

namespace Veilshot {

namespace {

AppDelegate* launched = nullptr;

} // namespace

AppDelegate* AppDelegate::shared() {
    return launched;
}

AppDelegate::AppDelegate(const Parts& parts, QObject* parent) : QObject(parent), m_parts(parts) {
    launched = this;
    m_lastWindowTimer.setSingleShot(true);
    m_lastWindowTimer.setInterval(300ms);
    connect(&m_lastWindowTimer, &QTimer::timeout, this, &AppDelegate::considerLastWindow);
    connect(&parts.scenes, &Scenes::allHidden, &m_lastWindowTimer, qOverload<>(&QTimer::start));
}

AppDelegate::~AppDelegate() {
    launched = nullptr;
}

void AppDelegate::follow(const AppCommands& commands) {
    Scenes& scenes = m_parts.scenes;
    connect(&commands, &AppCommands::quickPasteRequested, this, &AppDelegate::showQuickPaste);
    connect(&commands, &AppCommands::settingsRequested, this, [&] { scenes.open(Scenes::Id::settings); });
    connect(&commands, &AppCommands::aboutRequested, this, [&] { scenes.open(Scenes::Id::about); });
    connect(&commands, &AppCommands::quitRequested, this, [] { QCoreApplication::quit(); });
}

void AppDelegate::showQuickPaste() {}

void AppDelegate::carryOut(const WindowRequest& request) {
    switch (request.action) {
    case WindowRequest::Action::openImage:
        m_parts.store.load(QUrl::fromLocalFile(request.image));
        [[fallthrough]];
    case WindowRequest::Action::show:
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
    if (m_parts.scenes.isAnyVisible())
        return;
    switch (planAfterLastWindow({})) {
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

} // namespace Veilshot
