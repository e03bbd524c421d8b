#include "Veilshot/Platform/PortalHotKey.h"

#include "tests/Veilshot/Platform/PrivateBus.h"
#include "tests/Veilshot/StandIns.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace Veilshot {
namespace {

using StandIns::waitUntil;

const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString shortcuts = u"org.freedesktop.portal.GlobalShortcuts"_s;

/// The desktop portal and its user.
class ShortcutPortal : public QDBusVirtualObject {
public:
    QStringList unknownCalls;
    QStringList unansweredCalls;
    std::optional<uint> decision = 0; // none while the user thinks about it
    QStringList bound = {u"quick-paste"_s};
    QStringList calls; // in their order
    QList<QVariantList> arguments;

    explicit ShortcutPortal(const QDBusConnection& bus) : m_bus(bus) {}

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection&) override {
        calls << call.member();
        arguments << call.arguments();
        if (unknownCalls.contains(call.member()))
            return m_bus.send(call.createErrorReply(QDBusError::UnknownMethod, {}));
        if (unansweredCalls.contains(call.member()))
            return true;
        if (call.member() == "CreateSession"_L1) {
            const auto options = qdbus_cast<QVariantMap>(call.arguments().constLast());
            session = objectOf(call, u"session"_s, options.value(u"session_handle_token"_s));
            accept(call);
            respond(0, {{u"session_handle"_s, session}});
        } else if (call.member() == "BindShortcuts"_L1) {
            accept(call);
            if (decision)
                decide(*decision);
        } else if (call.member() == "Get"_L1) {
            m_bus.send(call.createReply(QVariant::fromValue(QDBusVariant(1u))));
        } else {
            m_bus.send(call.createReply());
        }
        return true;
    }

    void decide(uint code) {
        QList<std::pair<QString, QVariantMap>> list;
        for (const QString& id : bound)
            list.append({id, {}});
        respond(code, {{u"shortcuts"_s, QVariant::fromValue(list)}});
    }

    void activate(const QString& inSession, const QString& id) {
        signal(portalPath, shortcuts, u"Activated"_s,
               {QVariant::fromValue(QDBusObjectPath(inSession)), id, qulonglong(7), QVariantMap()});
    }

    void signal(const QString& path, const QString& interface, const QString& name,
                const QVariantList& values) {
        auto message = QDBusMessage::createSignal(path, interface, name);
        message.setArguments(values);
        m_bus.send(message);
    }

    QString session;

private:
    static QString objectOf(const QDBusMessage& call, const QString& kind, const QVariant& token) {
        return portalPath + u'/' + kind + u'/' + call.service().mid(1).replace(u'.', u'_') + u'/' +
               token.toString();
    }

    void accept(const QDBusMessage& call) {
        const auto options = qdbus_cast<QVariantMap>(call.arguments().constLast());
        m_request = objectOf(call, u"request"_s, options.value(u"handle_token"_s));
        m_bus.send(call.createReply(QVariant::fromValue(QDBusObjectPath(m_request))));
    }

    void respond(uint code, const QVariantMap& results) {
        signal(m_request, u"org.freedesktop.portal.Request"_s, u"Response"_s, {code, results});
    }

    QString m_request;
    QDBusConnection m_bus;
};

struct PortalShortcuts : testing::Test {
    PrivateBus bus;
    std::optional<QDBusConnection> desktop;
    std::unique_ptr<ShortcutPortal> portal;
    std::unique_ptr<QObject> context = std::make_unique<QObject>();
    int runs = 0;
    int answers = 0;
    std::unique_ptr<GlobalHotKey> hotKey;

    void SetUp() override {
        desktop = bus.connection(u"desktop"_s);
        portal = std::make_unique<ShortcutPortal>(*desktop);
        ASSERT_TRUE(desktop->registerVirtualObject(portalPath, portal.get(), QDBusConnection::SubPath));
        ASSERT_TRUE(desktop->registerService(u"org.freedesktop.portal.Desktop"_s));
    }

    void start(std::chrono::milliseconds patience = std::chrono::seconds(20)) {
        PortalHotKey::create(
            bus.connection(u"veilshot"_s), context.get(), [this] { ++runs; },
            [this](std::unique_ptr<GlobalHotKey> created) {
                ++answers;
                hotKey = std::move(created);
            },
            patience);
    }

    bool isAnswered() {
        return waitUntil([&] { return answers > 0; });
    }

    bool isAsked(const QString& call) {
        return waitUntil([&] { return portal->calls.contains(call); });
    }

    /// For another start. The portal answers again.
    void forget() {
        hotKey.reset();
        catchUp();
        answers = 0;
        portal->calls.clear();
        portal->unansweredCalls.clear();
    }

    /// Everything that was sent to the application so far has arrived.
    void catchUp() {
        QDBusMessage ping =
            QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s, portalPath, {}, u"Ping"_s);
        const auto reply = bus.connection(u"veilshot"_s).asyncCall(ping);
        EXPECT_TRUE(waitUntil([&] { return reply.isFinished(); }));
        QCoreApplication::processEvents();
    }
};

TEST_F(PortalShortcuts, RunsTheActionForItsOwnShortcutUntilItIsDropped) {
    QGuiApplication::setDesktopFileName(u"veilshot"_s);
    start();
    ASSERT_TRUE(isAnswered());
    ASSERT_TRUE(hotKey);
    EXPECT_EQ(portal->calls.join(u' '), u"Register Get CreateSession BindShortcuts"_s);
    EXPECT_EQ(portal->arguments.constFirst().constFirst(), u"veilshot"_s);
    const auto asked =
        qdbus_cast<QList<std::pair<QString, QVariantMap>>>(portal->arguments.constLast().at(1));
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked[0].first, u"quick-paste"_s);
    EXPECT_EQ(asked[0].second, (QVariantMap{{u"description"_s, u"Quick Paste"_s},
                                            {u"preferred_trigger"_s, u"LOGO+SHIFT+b"_s}}));

    catchUp(); // the bus knows of the wish to hear
    portal->activate(portal->session, u"another"_s);
    portal->activate(portal->session + u"2"_s, u"quick-paste"_s);
    portal->activate(portal->session, u"quick-paste"_s);
    catchUp();
    EXPECT_EQ(runs, 1);

    hotKey.reset();
    EXPECT_TRUE(isAsked(u"Close"_s));
    portal->activate(portal->session, u"quick-paste"_s);
    catchUp();
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(answers, 1);
}

TEST_F(PortalShortcuts, GivesNothingWhereThereIsNoPermissionOrNoPortal) {
    const struct {
        const char* name;
        std::function<void()> arrange;
        bool isGranted = false;
    } cases[] = {
        {"an older portal that knows no names", [&] { portal->unknownCalls = {u"Register"_s}; }, true},
        {"the user says no", [&] { portal->decision = 1; }},
        {"the user allows another shortcut", [&] { portal->bound = {u"another"_s}; }},
        {"no shortcuts in this portal", [&] { portal->unknownCalls = {u"Get"_s}; }},
        {"no session", [&] { portal->unknownCalls = {u"CreateSession"_s}; }},
        {"no portal", [&] { desktop->unregisterService(u"org.freedesktop.portal.Desktop"_s); }},
    };
    for (const auto& [name, arrange, isGranted] : cases) {
        SCOPED_TRACE(name);
        forget();
        portal->unknownCalls.clear();
        portal->decision = 0;
        portal->bound = {u"quick-paste"_s};
        arrange();
        start();
        ASSERT_TRUE(isAnswered());
        EXPECT_EQ(hotKey != nullptr, isGranted);
        catchUp();
        EXPECT_EQ(answers, 1);
    }
}

TEST_F(PortalShortcuts, WaitsForTheUserButNotForThePortal) {
    for (const auto* silent : {"Register", "Get", "CreateSession", "BindShortcuts"}) {
        SCOPED_TRACE(silent);
        forget();
        portal->unansweredCalls = {QString::fromLatin1(silent)};
        start(std::chrono::milliseconds(50));
        ASSERT_TRUE(isAnswered());
        EXPECT_FALSE(hotKey);
        catchUp();
        EXPECT_EQ(answers, 1);
    }
    forget();
    portal->decision.reset();
    start(std::chrono::seconds(2));
    EXPECT_TRUE(isAsked(u"BindShortcuts"_s));
    QElapsedTimer thought;
    thought.start();
    EXPECT_TRUE(waitUntil([&] { return thought.hasExpired(2'200); }));
    EXPECT_EQ(answers, 0);
    portal->decide(0);
    EXPECT_TRUE(isAnswered());
    EXPECT_TRUE(hotKey);
}

TEST_F(PortalShortcuts, EndsWithThePortalsSessionAndWithItsContext) {
    start();
    ASSERT_TRUE(isAnswered());
    catchUp();
    portal->signal(portal->session, u"org.freedesktop.portal.Session"_s, u"Closed"_s, {});
    portal->activate(portal->session, u"quick-paste"_s);
    catchUp();
    EXPECT_EQ(runs, 0);

    forget();
    portal->unansweredCalls = {u"BindShortcuts"_s};
    start();
    EXPECT_TRUE(isAsked(u"BindShortcuts"_s));
    context.reset();
    EXPECT_TRUE(waitUntil([&] { return portal->calls.count(u"Close"_s) == 2; }))
        << "the question and the session are taken back";
    EXPECT_EQ(answers, 0);
}

} // namespace
} // namespace Veilshot
