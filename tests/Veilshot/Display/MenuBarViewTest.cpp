#include "Veilshot/Features/MenuBar/MenuBarView.h"

#include "Veilshot/Platform/Clipboard.h"
#include "Veilshot/Platform/TrayHost.h"
#include "tests/Veilshot/Platform/ImageSamples.h"
#include "tests/Veilshot/StandIns.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QProcess>
#include <QPromise>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

using StandIns::waitUntil;

/// A program of the desktop.
class Program : public QProcess {
public:
    explicit Program(const QString& name) {
        start(name, QStringList());
        EXPECT_TRUE(waitForStarted()) << name.toStdString() << " is missing";
    }
    ~Program() override {
        kill();
        waitForFinished();
    }
};

/// Calls like a tray. It cannot just wait for the answer, because the icon is in this very thread.
QVariant call(const QString& service, const QString& path, const QString& interface, const QString& method,
              const QVariantList& arguments) {
    auto message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    const QDBusPendingCall answer = QDBusConnection::sessionBus().asyncCall(message);
    waitUntil([&] { return answer.isFinished(); });
    return answer.reply().arguments().value(method == u"GetLayout" ? 1 : 0);
}

QVariant watcherProperty(const QString& name) {
    const QString watcher = u"org.kde.StatusNotifierWatcher"_s;
    return call(watcher, u"/StatusNotifierWatcher"_s, u"org.freedesktop.DBus.Properties"_s, u"Get"_s,
                {watcher, name})
        .value<QDBusVariant>()
        .variant();
}

/// A tray that asks for icons over the bus.
class BusTray {
public:
    BusTray() {
        // The tray ends at once if there is no watcher.
        EXPECT_TRUE(waitUntil([] { return watcherProperty(u"ProtocolVersion"_s).isValid(); }));
        m_tray.emplace(u"gtk-sni-tray-standalone"_s);
        EXPECT_TRUE(waitUntil([] { return watcherProperty(u"IsStatusNotifierHostRegistered"_s).toBool(); }));
    }

private:
    Program m_watcher{u"status-notifier-watcher"_s};
    std::optional<Program> m_tray;
};

/// The services of the icons that the tray knows.
QStringList icons() {
    return watcherProperty(u"RegisteredStatusNotifierItems"_s).toStringList();
}

QVariant callMenu(const QString& method, const QVariantList& arguments) {
    return call(icons().value(0), u"/MenuBar"_s, u"com.canonical.dbusmenu"_s, method, arguments);
}

/// A session whose scan of the text ends when the test says.
struct MenuBarViewTest : testing::Test {
    std::optional<BusTray> tray;
    QPromise<DetectionOutcome> textScan;
    SystemClipboard clipboard;
    StandIns::AnsweringPanel panel;
    StandIns::ManualClock clock;
    EditorStore store{nullptr,
                      {.detectText = [this](const QImage&) { return textScan.future(); },
                       .detectPeople = [this](const QImage&) { return textScan.future(); },
                       .render = [](const QImage& bitmap, auto...) { return bitmap; },
                       .clipboard = clipboard,
                       .filePanel = panel,
                       .clock = clock}};
    TrayHost host;
    MenuBarView view{store, host};
    QHash<QString, int> lines; // what the menu showed, with the lines' identifiers
    QStringList requests;

    void SetUp() override {
        textScan.start();
        const auto note = [&](auto request, const QString& name) {
            view.connect(&view, request, [this, name] { requests.append(name); });
        };
        note(&MenuBarView::quickPasteRequested, u"Quick Paste…"_s);
        note(&MenuBarView::showWindowRequested, u"Show Window"_s);
        note(&MenuBarView::settingsRequested, u"Settings…"_s);
        note(&MenuBarView::quitRequested, u"Quit Veilshot"_s);
    }

    /// The texts from top to bottom, [in brackets] if they cannot be chosen.
    QStringList menu() {
        const auto root = callMenu(u"GetLayout"_s, {0, 1, QStringList()}).value<QDBusArgument>();
        QStringList texts;
        int id = 0;
        QVariantMap properties;
        root.beginStructure();
        root >> id >> properties;
        root.beginArray();
        while (!root.atEnd()) {
            QDBusVariant line;
            root >> line;
            const auto item = line.variant().value<QDBusArgument>();
            item.beginStructure();
            item >> id >> properties;
            const QString text = properties.value(u"label"_s, u"-"_s).toString();
            lines[text] = id;
            texts += properties.value(u"enabled"_s, true).toBool() ? text : u'[' + text + u']';
        }
        return texts;
    }

    void expectMenu(const QStringList& middle) {
        EXPECT_TRUE(waitUntil([&] {
            return menu() == QStringList{u"Quick Paste…"_s, u"Show Window"_s} + middle +
                                 QStringList{u"-"_s, u"Settings…"_s, u"-"_s, u"Quit Veilshot"_s};
        }));
    }

    void choose(const QString& text) {
        callMenu(u"Event"_s, {lines[text], u"clicked"_s, QVariant::fromValue(QDBusVariant(0)), 0u});
    }
};

TEST_F(MenuBarViewTest, FollowsTheSessionInATrayThatComesLaterAndGoesAndComesBack) {
    tray.emplace();
    ASSERT_TRUE(waitUntil([&] { return icons().size() == 1; }));
    expectMenu({});
    store.load(ImageSamples::filled(Qt::white, {20, 10}));
    expectMenu({u"[Finding personal details…]"_s});
    textScan.addResult(SensitiveRegions(1, {QUuid::createUuid(), {0, 0, 1, 1}, SensitiveKind::email}));
    textScan.finish();
    expectMenu({u"Copy Protected Image"_s, u"[2 details blurred]"_s});
    store.removeDetectedRegion(store.regions().front().id());
    expectMenu({u"Copy Protected Image"_s, u"[1 details blurred]"_s});
    choose(u"Copy Protected Image"_s);
    EXPECT_TRUE(waitUntil([&] { return store.didCopy(); }));
    store.clear();
    expectMenu({});

    tray.reset();
    EXPECT_TRUE(waitUntil([&] { return !host.isPresent(); }));
    tray.emplace();
    ASSERT_TRUE(waitUntil([&] { return icons().size() == 1; }));
    for (const QString& text : {u"Quick Paste…"_s, u"Show Window"_s, u"Settings…"_s, u"Quit Veilshot"_s}) {
        choose(text);
        EXPECT_TRUE(waitUntil([&] { return requests.endsWith(text); }));
    }
    call(icons()[0], u"/StatusNotifierItem"_s, u"org.kde.StatusNotifierItem"_s, u"Activate"_s, {0, 0});
    EXPECT_EQ(requests.mid(4), QStringList(u"Show Window"_s));
}

TEST(MenuBarEntry, NamesTheShortcutsThatWork) {
    const auto entries = MenuBarEntry::list({.stage = EditorStore::Stage::Empty});
    EXPECT_EQ(entries.front().shortcut, QKeySequence(u"Meta+Shift+B"_s));
    EXPECT_EQ(entries.back().shortcut, QKeySequence(u"Ctrl+Q"_s));
}

TEST(TrayHost, CountsOnlyTraysOfTheKindThatWasThereFirst) {
    std::optional<Program> old(u"trayer"_s);
    TrayHost host;
    const auto becomes = [&](bool isPresent) {
        return waitUntil([&] { return host.isPresent() == isPresent; });
    };
    EXPECT_TRUE(becomes(true));
    const BusTray other;
    old.reset();
    EXPECT_TRUE(becomes(false));
    old.emplace(u"trayer"_s);
    EXPECT_TRUE(becomes(true));
}

} // namespace
} // namespace Veilshot
