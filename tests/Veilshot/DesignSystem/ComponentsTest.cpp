#include "Veilshot/DesignSystem/Theme.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtQml/qqmlextensionplugin.h>
#include <gmock/gmock.h>

Q_IMPORT_QML_PLUGIN(Veilshot_DesignSystemPlugin)

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

TEST(SegmentedPicker, AsksForWhatTheArrowKeysChooseAndAnnouncesWhatItsOwnerSays) {
    const Theme theme(nullptr);
    QQmlEngine engine;
    engine.addImportPath(u"qrc:/qt/qml"_s);
    QQmlComponent component(&engine);
    component.setData("import QtQuick\nimport Veilshot.DesignSystem\n"
                      "SegmentedPicker { property string asked; titles: ['A', 'B', 'C']; currentIndex: 0\n"
                      "onActivated: index => { asked += index; if (index < 2) currentIndex = index } }",
                      {});
    QQuickWindow window;
    const std::unique_ptr<QQuickItem> item(qobject_cast<QQuickItem*>(component.create()));
    ASSERT_TRUE(item) << component.errorString().toStdString();
    item->setParentItem(window.contentItem());
    window.contentItem()->forceActiveFocus();
    QAccessibleInterface* picker = QAccessible::queryAccessibleInterface(item.get());
    const auto checked = [&] {
        QString titles;
        for (int i = 0; i < picker->childCount(); ++i)
            if (picker->child(i)->role() == QAccessible::RadioButton && picker->child(i)->state().checked)
                titles += picker->child(i)->text(QAccessible::Name);
        return titles;
    };
    EXPECT_EQ(checked(), u"A"_s);
    for (int key : {Qt::Key_Tab, Qt::Key_Left, Qt::Key_Right, Qt::Key_Right, Qt::Key_Left, Qt::Key_Down}) {
        for (auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(&window, &event);
        }
    }
    EXPECT_EQ(item->property("asked").toString(), u"1201"_s);
    EXPECT_EQ(checked(), u"B"_s);
    item->setProperty("currentIndex", 2);
    EXPECT_EQ(checked(), u"C"_s);
}

} // namespace
} // namespace Veilshot
