#include "Veilshot/App/VeilshotApp.h"

#include "Veilshot/DesignSystem/Theme.h"
#include "Veilshot/Features/Editor/EditorStore.h"
#include "Veilshot/Features/Editor/ImageImporter.h"
#include "Veilshot/Features/History/HistoryActions.h"
#include "Veilshot/Features/History/HistoryStore.h"
#include "Veilshot/Features/Settings/AppearanceSetting.h"
#include "Veilshot/Platform/DesktopColorScheme.h"
#include "Veilshot/Platform/FilePanel.h"
#include "Veilshot/Platform/UserDefaults.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QQmlApplicationEngine>
#include <QtQml/QQmlExtensionPlugin>

Q_IMPORT_QML_PLUGIN(Veilshot_DesignSystemPlugin)
Q_IMPORT_QML_PLUGIN(Veilshot_FeaturesPlugin)

using namespace Qt::StringLiterals;

namespace Veilshot {

int runWindow(const WindowRequest& request) {
    QApplication::setDesktopFileName(u"veilshot"_s);
    QApplication::setWindowIcon(QIcon(u":/qt/qml/Veilshot/DesignSystem/Icons/veilshot.svg"_s));

    Theme theme(nullptr);
    const DesktopColorScheme desktop;
    AppearanceSetting appearance(UserDefaults::standard(), desktop, theme);

    EditorStore& store = EditorStore::shared();
    ImageImporter importer(store, SystemFilePanel::shared());

    QQmlApplicationEngine engine;
    engine.addImportPath(u"qrc:/qt/qml"_s);
    engine.setInitialProperties({{u"store"_s, QVariant::fromValue(&store)},
                                 {u"history"_s, QVariant::fromValue(&HistoryStore::shared())},
                                 {u"historyActions"_s, QVariant::fromValue(&HistoryActions::shared())},
                                 {u"importer"_s, QVariant::fromValue(&importer)},
                                 {u"appearance"_s, QVariant::fromValue(&appearance)},
                                 {u"visible"_s, true}});
    engine.load(u"qrc:/qt/qml/Veilshot/Features/Editor/EditorWindow.qml"_s);
    if (engine.rootObjects().isEmpty())
        return exitSomeImageFailed;
    if (!request.image.isEmpty())
        store.load(QUrl::fromLocalFile(QDir().absoluteFilePath(request.image)));
    return QApplication::exec();
}

} // namespace Veilshot
