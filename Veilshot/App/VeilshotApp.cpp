#include "Veilshot/App/VeilshotApp.h"

#include "Veilshot/App/AppCommands.h"
#include "Veilshot/App/AppDelegate.h"
#include "Veilshot/App/ApplicationService.h"
#include "Veilshot/App/CommandLine.h"
#include "Veilshot/App/Scenes.h"
#include "Veilshot/App/StandardStreams.h"
#include "Veilshot/DesignSystem/Theme.h"
#include "Veilshot/Features/Editor/EditorStore.h"
#include "Veilshot/Features/Editor/ImageImporter.h"
#include "Veilshot/Features/History/HistoryActions.h"
#include "Veilshot/Features/History/HistoryStore.h"
#include "Veilshot/Features/MenuBar/MenuBarView.h"
#include "Veilshot/Features/Onboarding/OnboardingStore.h"
#include "Veilshot/Features/Settings/AppearanceSetting.h"
#include "Veilshot/Features/Updates/CheckForUpdatesViewModel.h"
#include "Veilshot/Features/Updates/KeptUpdateSchedule.h"
#include "Veilshot/Platform/Clipboard.h"
#include "Veilshot/Platform/Clock.h"
#include "Veilshot/Platform/DesktopColorScheme.h"
#include "Veilshot/Platform/DesktopMotion.h"
#include "Veilshot/Platform/FilePanel.h"
#include "Veilshot/Platform/KeyRepeat.h"
#include "Veilshot/Platform/MainWindowBridge.h"
#include "Veilshot/Platform/TerminationSignals.h"
#include "Veilshot/Platform/TrayHost.h"
#include "Veilshot/Platform/UserDefaults.h"
#include "Veilshot/Updates/UpdateConfiguration.h"
#include "Veilshot/Updates/Updater.h"

#include <QApplication>
#include <QDesktopServices>
#include <QIcon>
#include <QQmlEngine>
#include <QtQml/QQmlExtensionPlugin>

Q_IMPORT_QML_PLUGIN(Veilshot_AppPlugin)
Q_IMPORT_QML_PLUGIN(Veilshot_DesignSystemPlugin)
Q_IMPORT_QML_PLUGIN(Veilshot_FeaturesPlugin)

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

int runApplication(ApplicationService& service, const WindowRequest& request) {
    QApplication::setDesktopFileName(ApplicationService::serviceName);
    QApplication::setWindowIcon(QIcon(u":/qt/qml/Veilshot/DesignSystem/Icons/veilshot.svg"_s));
    QApplication::setQuitOnLastWindowClosed(false);

    Theme theme(nullptr);
    const DesktopColorScheme desktop;
    AppearanceSetting appearance(UserDefaults::standard(), desktop, theme);

    const SystemClipboard clipboard;
    FilePanel& filePanel = SystemFilePanel::shared();
    EditorStore& store = EditorStore::shared();
    OnboardingStore& onboarding = OnboardingStore::shared();
    ImageImporter importer(store, filePanel);
    const DesktopMotion motion;
    AppCommands commands;

    const SystemClock clock;
    const auto configuration = UpdateConfiguration::builtIn();
    Updater updater(configuration, keptUpdateSchedule(UserDefaults::standard(), clock));
    CheckForUpdatesViewModel updates(updater, QApplication::applicationVersion(), &QDesktopServices::openUrl);

    const TerminationSignals terminationSignals;
    QObject::connect(&terminationSignals, &TerminationSignals::received, qApp, &QApplication::quit);
    KeyRepeat keyRepeat;
    qApp->installEventFilter(&keyRepeat);

    QQmlEngine engine;
    QObject::connect(&engine, &QQmlEngine::quit, qApp, &QApplication::quit);
    engine.addImportPath(u"qrc:/qt/qml"_s);
    Scenes scenes(engine, {{u"store"_s, QVariant::fromValue(&store)},
                           {u"history"_s, QVariant::fromValue(&HistoryStore::shared())},
                           {u"historyActions"_s, QVariant::fromValue(&HistoryActions::shared())},
                           {u"onboarding"_s, QVariant::fromValue(&onboarding)},
                           {u"importer"_s, QVariant::fromValue(&importer)},
                           {u"appearance"_s, QVariant::fromValue(&appearance)},
                           {u"motion"_s, QVariant::fromValue(&motion)},
                           {u"updates"_s, QVariant::fromValue(&updates)},
                           {u"commands"_s, QVariant::fromValue(&commands)}});
    MainWindowBridge mainWindow([&onboarding] { return onboarding.isComplete(); },
                                [&scenes, &onboarding] {
                                    scenes.open(onboarding.isComplete() ? Scenes::Id::main
                                                                        : Scenes::Id::onboarding);
                                });
    TrayHost trayHost;
    MenuBarView menuBar(store, trayHost);

    AppDelegate delegate(
        {store, onboarding, clipboard, filePanel, engine, scenes, mainWindow, trayHost, menuBar, commands});
    delegate.applicationDidFinishLaunching();
    QObject::connect(&service, &ApplicationService::requested, &delegate, &AppDelegate::carryOut);
    delegate.carryOut(request);
    const auto startUpdater = [&] {
        if (onboarding.isComplete()) // an answer would get in the walkthrough's way
            updater.start();
    };
    if (configuration) {
        scenes.window(Scenes::Id::updates); // shows itself when there is something to show
        startUpdater();
        QObject::connect(&onboarding, &OnboardingStore::isCompleteChanged, &updater, startUpdater);
    }
    return QApplication::exec();
}

} // namespace

int runWindow(const WindowRequest& request, const ActivationToken& token) {
    ApplicationService service(QDBusConnection::sessionBus());
    switch (service.start(request, token)) {
    case ApplicationService::Start::first:
        return runApplication(service, request);
    case ApplicationService::Start::handedOver:
        return exitDone;
    case ApplicationService::Start::unanswered:
        StandardStreams::writeErrorLine(u"Veilshot is running already, but does not answer."_s);
        return exitSomeImageFailed;
    }
    return exitDone;
}

} // namespace Veilshot
