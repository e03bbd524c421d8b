#include "Veilshot/DesignSystem/Theme.h"
#include "Veilshot/Features/History/HistoryStore.h"
#include "Veilshot/Features/Onboarding/OnboardingStore.h"
#include "Veilshot/Platform/DesktopMotion.h"
#include "Veilshot/Platform/UserDefaults.h"
#include "tests/Veilshot/StandIns.h"

#include <QDBusConnection>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

QStringList warnings;

/// The window on a desktop with motion ("0") or without ("1").
struct OnboardingWindowTest : testing::TestWithParam<const char*> {
    const QTemporaryDir temporary;
    UserDefaults defaults{temporary.filePath(u"settings.conf"_s)};
    const StandIns::ManualClock clock;
    OnboardingStore onboarding{defaults};
    HistoryStore history{QUrl::fromLocalFile(temporary.filePath(u"history"_s)), defaults, clock};
    Theme theme{nullptr};
    std::unique_ptr<DesktopMotion> motion;
    QQmlApplicationEngine engine;
    QQuickWindow* window = nullptr;

    void SetUp() override {
        warnings.clear();
        qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString& message) { warnings << message; });
        qputenv("VEILSHOT_REDUCED_MOTION", GetParam());
        motion = std::make_unique<DesktopMotion>(QDBusConnection(u"none"_s));
        engine.addImportPath(u"qrc:/qt/qml"_s);
        engine.setInitialProperties({{u"onboarding"_s, QVariant::fromValue(&onboarding)},
                                     {u"history"_s, QVariant::fromValue(&history)},
                                     {u"motion"_s, QVariant::fromValue(motion.get())},
                                     {u"visible"_s, true}});
        engine.load(u"qrc:/qt/qml/Veilshot/Features/Onboarding/OnboardingWindow.qml"_s);
        ASSERT_EQ(engine.rootObjects().size(), 1);
        window = qobject_cast<QQuickWindow*>(engine.rootObjects()[0]);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    }
    void TearDown() override {
        qunsetenv("VEILSHOT_REDUCED_MOTION");
        qInstallMessageHandler(nullptr);
        EXPECT_EQ(warnings.join(u'\n').toStdString(), "");
    }

    void press(std::initializer_list<Qt::Key> keys) const {
        for (const Qt::Key key : keys)
            QTest::keyClick(window, key);
    }
    /// Once whatever moves has come to rest.
    bool shows(const QString& text) const {
        return StandIns::waitUntil([&] { return find(window->contentItem(), text) != nullptr; });
    }
    bool isGone(const QString& text) const {
        return StandIns::waitUntil([&] { return find(window->contentItem(), text) == nullptr; });
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

TEST_P(OnboardingWindowTest, IsWalkedThroughWithReturnAndNothingElseEndsIt) {
    const QSignalSpy finished(window, SIGNAL(finished()));
    EXPECT_EQ(window->objectName(), u"Veilshot.Onboarding"_s);
    EXPECT_TRUE(shows(u"Share screenshots, not your details"_s));
    EXPECT_TRUE(isGone(u"Back"_s));
    press({Qt::Key_Escape, Qt::Key_Return});
    EXPECT_TRUE(shows(u"Spots what\u2019s sensitive"_s));
    EXPECT_TRUE(shows(u"5 details hidden"_s));

    ASSERT_TRUE(shows(u"Back"_s));
    press({Qt::Key_Backtab, Qt::Key_Return});
    EXPECT_TRUE(shows(u"Share screenshots, not your details"_s));
    EXPECT_TRUE(isGone(u"Back"_s));

    // Back has gone with the keyboard, and yet there is a button for it.
    press({Qt::Key_Return});
    EXPECT_TRUE(shows(u"Spots what\u2019s sensitive"_s));
    press({Qt::Key_Return});
    ASSERT_TRUE(shows(u"Private by design"_s));
    EXPECT_TRUE(isGone(u"Spots what\u2019s sensitive"_s));
    ASSERT_TRUE(history.isEnabled());
    while (window->activeFocusItem()->property("text") != u"Keep protected copies in history"_s)
        press({Qt::Key_Tab});
    press({Qt::Key_Space});
    EXPECT_FALSE(history.isEnabled());
    press({Qt::Key_Return});

    ASSERT_TRUE(shows(u"Try it now"_s));
    EXPECT_FALSE(history.isEnabled());
    onboarding.countShortcutPress();
    EXPECT_TRUE(shows(u"That\u2019s Quick Paste"_s));
    EXPECT_TRUE(isGone(u"Try it now"_s));
    press({Qt::Key_Return});

    ASSERT_TRUE(shows(u"You\u2019re all set"_s));
    EXPECT_TRUE(shows(u"Open Veilshot"_s));
    EXPECT_FALSE(onboarding.isComplete());
    EXPECT_EQ(finished.count(), 0);
    press({Qt::Key_Return});
    EXPECT_EQ(finished.count(), 1);
    EXPECT_TRUE(onboarding.isComplete());
}

INSTANTIATE_TEST_SUITE_P(Motion, OnboardingWindowTest, testing::Values("0", "1"));

} // namespace
} // namespace Veilshot
