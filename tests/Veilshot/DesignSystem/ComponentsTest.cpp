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

struct Components : testing::Test {
    Theme theme{nullptr};
    QQmlEngine engine;
    QQuickWindow window;
    std::unique_ptr<QQuickItem> item;

    void show(const QByteArray& qml) {
        engine.addImportPath(u"qrc:/qt/qml"_s);
        QQmlComponent component(&engine);
        component.setData("import QtQuick\nimport Veilshot.DesignSystem\n" + qml, {});
        item.reset(qobject_cast<QQuickItem*>(component.create()));
        ASSERT_TRUE(item) << component.errorString().toStdString();
        item->setParentItem(window.contentItem());
        window.contentItem()->forceActiveFocus();
    }
    void press(int key) {
        for (auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(&window, &event);
        }
    }
};

TEST_F(Components, FollowTheAppearanceOfTheApplicationsTheme) {
    show("Rectangle { color: Theme.base; border.color: Theme.tints.email }");
    for (bool isDark : {false, true, false}) {
        theme.setDark(isDark);
        EXPECT_EQ(item->property("color").value<QColor>(), theme.windowBackground());
        EXPECT_EQ(item->property("border").value<QObject*>()->property("color"), theme.tints()[u"email"_s]);
    }
}

TEST_F(Components, PickersAskForWhatTheArrowKeysChooseAndAnnounceWhatTheirOwnerSays) {
    show("SegmentedPicker { property string asked; titles: ['A', 'B', 'C']; currentIndex: 0\n"
         "onActivated: index => { asked += index; if (index < 2) currentIndex = index } }");
    QAccessibleInterface* picker = QAccessible::queryAccessibleInterface(item.get());
    const auto checked = [&] {
        QString titles;
        for (int i = 0; i < picker->childCount(); ++i)
            if (picker->child(i)->role() == QAccessible::RadioButton && picker->child(i)->state().checked)
                titles += picker->child(i)->text(QAccessible::Name);
        return titles;
    };
    EXPECT_EQ(checked(), u"A"_s);
    press(Qt::Key_Tab);
    for (int key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Right, Qt::Key_Left, Qt::Key_Down})
        press(key);
    EXPECT_EQ(item->property("asked").toString(), u"1201"_s);
    EXPECT_EQ(checked(), u"B"_s);
    item->setProperty("currentIndex", 2);
    EXPECT_EQ(checked(), u"C"_s);
}

TEST_F(Components, ButtonsArePressedWithReturnUnlessDisabled) {
    show("FlatButton { kind: FlatButton.Primary; text: 'Copy'; property int count: 0; onClicked: ++count }");
    for (int key : {Qt::Key_Tab, Qt::Key_Return, Qt::Key_Space})
        press(key);
    EXPECT_EQ(item->property("count"), 2);
    item->setEnabled(false);
    press(Qt::Key_Return);
    EXPECT_EQ(item->property("count"), 2);
    EXPECT_EQ(item->opacity(), 0.4);
}

} // namespace
} // namespace Veilshot
