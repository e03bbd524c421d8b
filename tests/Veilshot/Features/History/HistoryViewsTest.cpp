#include "Veilshot/DesignSystem/Theme.h"
#include "tests/Veilshot/Features/History/KeptCopies.h"

#include <QQmlApplicationEngine>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

Q_IMPORT_QML_PLUGIN(Veilshot_DesignSystemPlugin)
Q_IMPORT_QML_PLUGIN(Veilshot_FeaturesPlugin)

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

/// The strip and the sheet as the start screen puts them together.
constexpr auto window = R"(
import QtQuick
import QtQuick.Templates as T
import Veilshot.Features
T.ApplicationWindow {
    id: window
    required property HistoryStore history
    required property HistoryActions actions
    property historyEntry picked
    property int opened: 0
    property alias isShowingSheet: sheet.visible
    property alias isConfirmingClear: strip.isConfirmingClear
    width: 900
    height: 560
    visible: true
    RecentHistoryView {
        id: strip
        anchors.fill: parent
        history: window.history
        actions: window.actions
        onSelect: entry => { window.picked = entry; sheet.open(); }
    }
    HistoryDetailView {
        id: sheet
        history: window.history
        actions: window.actions
        entry: window.picked
        onOpenInEditor: window.opened++
    }
})";

struct HistoryViewsTest : KeptCopies {
    Theme theme{nullptr};
    QQmlApplicationEngine engine;
    QQuickWindow* view = nullptr;

    void SetUp() override {
        engine.addImportPath(u"qrc:/qt/qml"_s);
        engine.setInitialProperties(
            {{u"history"_s, QVariant::fromValue(&store)}, {u"actions"_s, QVariant::fromValue(&actions)}});
        engine.loadData(window);
        ASSERT_EQ(engine.rootObjects().size(), 1);
        view = qobject_cast<QQuickWindow*>(engine.rootObjects()[0]);
        ASSERT_TRUE(QTest::qWaitForWindowActive(view));
    }

    bool becomes(const char* property, bool value) const {
        return StandIns::waitUntil([&] { return view->property(property).toBool() == value; });
    }
    /// The visible item with this text, once there is one that has come to rest.
    QQuickItem* item(const QString& text) const {
        QQuickItem* found = nullptr;
        StandIns::waitUntil([&] { return (found = find(view->contentItem(), text)) != nullptr; });
        return found;
    }
    void click(const QString& text) const {
        QQuickItem* target = item(text);
        ASSERT_TRUE(target) << text.toStdString();
        const QPointF middle = target->mapToScene({target->width() / 2, target->height() / 2});
        QTest::mouseClick(view, Qt::LeftButton, {}, middle.toPoint());
    }
    void press(std::initializer_list<Qt::Key> keys, Qt::KeyboardModifiers modifiers = {}) const {
        for (const Qt::Key key : keys)
            QTest::keyClick(view, key, modifiers);
    }

private:
    static QQuickItem* find(QQuickItem* parent, const QString& text) {
        for (QQuickItem* child : parent->childItems()) {
            if (!child->isVisible() || child->opacity() < 1)
                continue;
            if (child->property("text").toString() == text)
                return child;
            if (QQuickItem* found = find(child, text))
                return found;
        }
        return nullptr;
    }
};

TEST_F(HistoryViewsTest, OpensTheSheetOfTheCardThatHasTheKeyboard) {
    press({Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Right, Qt::Key_Return});
    ASSERT_TRUE(becomes("isShowingSheet", true));
    EXPECT_TRUE(item(u"2 areas hidden \u00b7 40 \u00d7 30"_s));
    press({Qt::Key_C}, Qt::ControlModifier);
    waitForCopies(1);
    EXPECT_TRUE(item(u"Copied"_s));
    click(u"Show in Finder"_s);
    EXPECT_EQ(fileManager.revealed, std::vector{store.imageURL(small())});
    press({Qt::Key_Escape});
    ASSERT_TRUE(becomes("isShowingSheet", false));

    for (const QString& button : {u"Open in Editor"_s, u"Delete"_s}) {
        press({Qt::Key_Return});
        click(button);
        EXPECT_TRUE(becomes("isShowingSheet", false));
    }
    EXPECT_EQ(view->property("opened"), 1);
    EXPECT_EQ(store.count(), 1);
    EXPECT_EQ(tall().pixelWidth, 600);
}

TEST_F(HistoryViewsTest, OffersTheMenuOfACardToTheKeyboard) {
    press({Qt::Key_Tab, Qt::Key_Tab});
    const QQuickItem* card = view->activeFocusItem();
    press({Qt::Key_Menu});
    ASSERT_TRUE(item(u"Show in Finder"_s));
    press({Qt::Key_Down, Qt::Key_Return});
    waitForCopies(1);
    EXPECT_EQ(clipboard.written[0].width(), 600);
    // The card has the keyboard again when the menu has faded away.
    ASSERT_TRUE(StandIns::waitUntil([&] { return view->activeFocusItem() == card; }));
    press({Qt::Key_F10}, Qt::ShiftModifier);
    ASSERT_TRUE(item(u"Show in Finder"_s));
    press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(store.count(), 1);
    EXPECT_EQ(store.entries()[0].pixelWidth, 40);
}

TEST_F(HistoryViewsTest, ClearsOnlyWhenThatIsConfirmed) {
    click(u"Clear"_s);
    ASSERT_TRUE(becomes("isConfirmingClear", true));
    press({Qt::Key_Escape});
    ASSERT_TRUE(becomes("isConfirmingClear", false));
    EXPECT_EQ(store.count(), 2);
    click(u"Clear"_s);
    click(u"Clear History"_s);
    EXPECT_TRUE(StandIns::waitUntil([&] { return store.count() == 0; }));
}

} // namespace
} // namespace Veilshot
