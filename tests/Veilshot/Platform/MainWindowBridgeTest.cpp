#include "Veilshot/Platform/MainWindowBridge.h"

#include "tests/Veilshot/StandIns.h"

#include <QWindow>
#include <gmock/gmock.h>
#include <memory>

namespace Veilshot {
namespace {

std::unique_ptr<QWindow> windowNamed(QLatin1StringView name) {
    auto window = std::make_unique<QWindow>();
    window->setObjectName(name);
    return window;
}

TEST(MainWindowBridgeTest, BringsBackTheSameWindowFromWhereverItIs) {
    MainWindowBridge bridge([] { return true; });
    EXPECT_FALSE(bridge.showMainWindow());
    const auto other = windowNamed(MainWindowBridge::onboardingIdentifier);
    const auto window = windowNamed(MainWindowBridge::identifier);
    EXPECT_TRUE(bridge.showMainWindow());
    EXPECT_TRUE(window->isVisible());
    bridge.hideMainWindow();
    EXPECT_FALSE(bridge.isMainWindowVisible());

    window->showMaximized();
    window->setWindowStates(Qt::WindowMaximized | Qt::WindowMinimized);
    EXPECT_TRUE(bridge.showMainWindow());
    EXPECT_EQ(window->windowStates(), Qt::WindowMaximized);
    EXPECT_FALSE(other->isVisible());
}

TEST(MainWindowBridgeTest, ShowsTheWalkthroughUntilThatIsFinishedAndMakesWhatIsMissing) {
    bool isComplete = false;
    std::vector<std::unique_ptr<QWindow>> made;
    MainWindowBridge bridge([&] { return isComplete; },
                            [&] {
                                made.push_back(windowNamed(isComplete
                                                               ? MainWindowBridge::identifier
                                                               : MainWindowBridge::onboardingIdentifier));
                            });
    for (const bool complete : {false, true}) {
        isComplete = complete;
        bridge.presentMainWindow();
        ASSERT_TRUE(StandIns::waitUntil([&] { return made.back()->isVisible(); }));
        made.back()->hide();
        bridge.presentMainWindow();
        EXPECT_TRUE(made.back()->isVisible());
    }
    EXPECT_EQ(made.size(), 2u);
}

} // namespace
} // namespace Veilshot
