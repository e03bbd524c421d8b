#include "Veilshot/DesignSystem/Theme.h"
#include "Veilshot/Features/Updates/CheckForUpdatesViewModel.h"
#include "Veilshot/Updates/Updater.h"
#include "tests/Veilshot/StandIns.h"
#include "tests/Veilshot/Updates/FeedServer.h"
#include "tests/Veilshot/Updates/SignedFeed.h"

#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QTest>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using Veilshot::StandIns::waitUntil;

namespace Veilshot {
namespace {

TEST(UpdateWindow, ShowsACheckAndIsDoneWithTheKeyboard) {
    FeedServer server;
    server.answers = {FeedServer::Answer(),
                      FeedServer::page(SignedFeed::feed(SignedFeed::item(SignedFeed::Entry())))};
    const QDateTime now = QDateTime::currentDateTimeUtc();
    Updater updater(
        UpdateConfiguration{server.address(), SignedFeed::publicKey(), *ReleaseVersion::parse(u"1.4"_s)},
        {[=] { return now; }, [=] { return now; }, [](const QDateTime&) {}});
    updater.start();
    bool hasBrowser = false;
    std::vector<QUrl> pages;
    CheckForUpdatesViewModel model(updater, u"1.4"_s, [&](const QUrl& page) {
        pages.push_back(page);
        return hasBrowser;
    });
    Theme theme(nullptr);
    QQmlApplicationEngine engine;
    engine.addImportPath(u"qrc:/qt/qml"_s);
    engine.setInitialProperties({{u"updates"_s, QVariant::fromValue(&model)}});
    engine.load(u"qrc:/qt/qml/Veilshot/Features/Updates/UpdateWindow.qml"_s);
    ASSERT_FALSE(engine.rootObjects().isEmpty());
    auto* const window = qobject_cast<QQuickWindow*>(engine.rootObjects().constFirst());

    model.checkForUpdates();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(model.canCheckForUpdates());

    model.checkForUpdates();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    EXPECT_TRUE(window->close()) << "by the window's own button";
    EXPECT_TRUE(model.canCheckForUpdates());

    server.requests.resize(1); // the next gets the good answer
    model.checkForUpdates();
    ASSERT_TRUE(waitUntil([&] { return model.stage() == CheckForUpdatesViewModel::UpdateFound; }));
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    QTest::keyClick(window, Qt::Key_Return);
    EXPECT_TRUE(window->isVisible()) << "there is no browser";
    EXPECT_TRUE(model.message().contains(u"https://example.org/1.5.0"_s));
    hasBrowser = true;
    QTest::keyClick(window, Qt::Key_Return);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(pages, std::vector(2, QUrl(u"https://example.org/1.5.0"_s)));
}

} // namespace
} // namespace Veilshot
