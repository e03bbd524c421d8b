#include "Veilshot/Features/QuickPaste/QuickPastePanelController.h"

#include "Veilshot/DesignSystem/Theme.h"
#include "Veilshot/Platform/MainWindowBridge.h"
#include "tests/Veilshot/Features/QuickPaste/PreparedSession.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTest>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

using StandIns::waitUntil;

struct QuickPastePanelControllerTest : testing::Test, StandIns::SessionParts {
    Theme theme{nullptr};
    QQmlEngine engine;
    QWindow mainWindow;
    MainWindowBridge bridge{[] { return true; }};
    std::unique_ptr<QuickPastePanelController> controller;

    QuickPastePanelControllerTest() {
        engine.addImportPath(u"qrc:/qt/qml"_s);
        mainWindow.setObjectName(MainWindowBridge::identifier);
        controller = std::make_unique<QuickPastePanelController>(collaborators(), bridge, engine);
    }

    QuickPasteSession& session() { return controller->session(); }
    QQuickWindow& panel() { return controller->panel().window(); }
    void show() {
        controller->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&panel()));
        ASSERT_TRUE(waitUntil([&] { return session().isShown(); }));
    }
    static void tellApplication(Qt::ApplicationState state) {
        Q_EMIT qGuiApp->applicationStateChanged(state);
    }
    void expectPasteFails() {
        EXPECT_TRUE(waitUntil([&] { return !session().errorMessage().isEmpty(); }));
        session().reset();
    }
};

TEST_F(QuickPastePanelControllerTest, PutsTheMainWindowBackTheWayItWas) {
    const auto cancel = [this] { session().cancel(); };
    const auto close = [this] { panel().close(); };
    const auto complete = [this] {
        clipboard.held.setImageData(picture({3, 2}));
        session().paste();
    };
    const auto leave = [] { tellApplication(Qt::ApplicationInactive); };
    const struct {
        const char* name;
        bool wasVisible;
        std::function<void()> end;
        bool isVisible;
    } rows[] = {
        {"cancelled over it", true, cancel, true},           {"cancelled without it", false, cancel, false},
        {"closed by the window manager", true, close, true}, {"left over it", true, leave, false},
        {"completed without it", false, complete, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        mainWindow.setVisible(row.wasVisible);
        show();
        EXPECT_FALSE(mainWindow.isVisible());
        row.end();
        EXPECT_TRUE(waitUntil([&] { return !controller->isVisible(); }));
        QCoreApplication::processEvents();
        EXPECT_EQ(mainWindow.isVisible(), row.isVisible);
        tellApplication(Qt::ApplicationActive);
    }
}

TEST_F(QuickPastePanelControllerTest, BeginsAfreshWhenShownAgain) {
    mainWindow.show();
    show();
    session().paste();
    ASSERT_TRUE(waitUntil([&] { return !session().errorMessage().isEmpty(); }));
    controller->show();
    EXPECT_EQ(session().errorMessage(), QString());
    EXPECT_TRUE(waitUntil([&] { return session().isShown(); }));
    session().cancel();
    EXPECT_FALSE(mainWindow.isVisible());
}

TEST_F(QuickPastePanelControllerTest, StaysForADragAndForItsOwnFilePanel) {
    int departures = 0;
    QObject::connect(controller.get(), &QuickPastePanelController::deactivated, [&] { ++departures; });
    const auto leaveForLong = [] {
        tellApplication(Qt::ApplicationInactive);
        QTest::qWait(300); // longer than the panel waits
    };
    filePanel.meanwhile = leaveForLong;
    show();
    session().openImage();
    ASSERT_TRUE(waitUntil([&] { return !session().isChoosingFile(); }));
    tellApplication(Qt::ApplicationActive);

    session().setDropTargeted(true);
    leaveForLong();
    session().drop({}); // refused, and the user is told here
    EXPECT_EQ(departures, 0);
    session().setDropTargeted(false);
    EXPECT_TRUE(waitUntil([&] { return departures == 1; }));
    EXPECT_FALSE(controller->isVisible());
}

TEST_F(QuickPastePanelControllerTest, TakesItsKeysBeforeItsButtonsDo) {
    show();
    for (const Qt::KeyboardModifiers modifiers :
         {Qt::ControlModifier | Qt::ShiftModifier, Qt::KeyboardModifiers(Qt::MetaModifier)}) {
        QTest::keyClick(&panel(), Qt::Key_V, modifiers);
        expectPasteFails();
    }
    EXPECT_EQ(beeps, 2);
    QTest::keyClick(&panel(), Qt::Key_V, Qt::ShiftModifier);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier, u"v"_s, true);
    QCoreApplication::sendEvent(&panel(), &held);
    QCoreApplication::processEvents();
    EXPECT_EQ(session().errorMessage(), QString());
    QTest::keyClick(&panel(), Qt::Key_Return); // the button with the keyboard: "Paste"
    expectPasteFails();
    EXPECT_EQ(beeps, 3);
    QTest::keyClick(&panel(), Qt::Key_Tab);
    QTest::keyClick(&panel(), Qt::Key_Tab);
    QTest::keyClick(&panel(), Qt::Key_Space); // the button that closes it
    EXPECT_FALSE(controller->isVisible());
    show();
    QTest::keyClick(&panel(), Qt::Key_Space); // "Paste" again
    expectPasteFails();
    QTest::keyClick(&panel(), Qt::Key_Escape, Qt::ShiftModifier);
    EXPECT_FALSE(controller->isVisible());
}

} // namespace
} // namespace Veilshot
