#include "Veilshot/Platform/PortalHotKey.h"

#include "Veilshot/Platform/Portal.h"
#include "Veilshot/Platform/PortalRequest.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QGuiApplication>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// A shortcut's id and what is said about it.
using PortalShortcut = std::pair<QString, QVariantMap>;

const QString shortcutsInterface = u"org.freedesktop.portal.GlobalShortcuts"_s;
const QString sessionInterface = u"org.freedesktop.portal.Session"_s;

const PortalShortcut quickPaste = {
    u"quick-paste"_s, {{u"description"_s, u"Quick Paste"_s}, {u"preferred_trigger"_s, u"LOGO+SHIFT+b"_s}}};

/// Always the same, because some portals remember by it what the user has chosen.
const QString sessionToken = u"veilshot"_s;

QDBusMessage callTo(const QString& interface, const QString& method) {
    return QDBusMessage::createMethodCall(Portal::service, Portal::path, interface, method);
}

/// A portal may bind some of the shortcuts only, and says which. Some do not say if it is all of them.
bool isBound(const QVariantMap& results) {
    const auto bound = results.constFind(u"shortcuts"_s);
    return bound == results.cend() || std::ranges::count(qdbus_cast<QList<PortalShortcut>>(*bound),
                                                         quickPaste.first, &PortalShortcut::first) > 0;
}

} // namespace

void PortalHotKey::create(const QDBusConnection& bus, QObject* context, Action action, Receive receive,
                          std::chrono::milliseconds patience) {
    if (!bus.isConnected())
        return receive(nullptr);
    auto* hotKey = new PortalHotKey(bus, context, std::move(action), std::move(receive), patience);
    hotKey->setParent(context); // until there is somebody to own it
    hotKey->introduceApplication();
}

PortalHotKey::PortalHotKey(const QDBusConnection& bus, QObject* context, Action action, Receive receive,
                           std::chrono::milliseconds patience)
    : GlobalHotKey(context, std::move(action)), m_bus(bus), m_receive(std::move(receive)) {
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, &PortalHotKey::fail);
    auto* watcher =
        new QDBusServiceWatcher(Portal::service, m_bus, QDBusServiceWatcher::WatchForUnregistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, &PortalHotKey::handleClosed);
}

PortalHotKey::~PortalHotKey() {
    if (!m_session.isEmpty())
        m_bus.send(QDBusMessage::createMethodCall(Portal::service, m_session, sessionInterface, u"Close"_s));
}

/// Newer portals give shortcuts only to applications that they know by name. The older ones do not have this
/// call, and inside a sandbox it is refused since the name is known: either way the next steps decide.
void PortalHotKey::introduceApplication() {
    auto message = callTo(u"org.freedesktop.host.portal.Registry"_s, u"Register"_s);
    message << QGuiApplication::desktopFileName() << QVariantMap();
    call(message, [this](bool) { askForVersion(); });
}

void PortalHotKey::askForVersion() {
    auto message = callTo(u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    message << shortcutsInterface << u"version"_s;
    call(message, [this](bool isAnswered) { isAnswered ? openSession() : fail(); });
}

void PortalHotKey::openSession() {
    m_patience.start();
    m_session = Portal::objectPath(m_bus, u"session"_s, sessionToken);
    m_bus.connect(Portal::service, m_session, sessionInterface, u"Closed"_s, this, SLOT(handleClosed()));
    auto* request = new PortalRequest(m_bus, callTo(shortcutsInterface, u"CreateSession"_s),
                                      {{u"session_handle_token"_s, sessionToken}}, this);
    connect(request, &PortalRequest::refused, this, [this] {
        m_session.clear();
        fail();
    });
    connect(request, &PortalRequest::granted, this, &PortalHotKey::bindShortcut);
}

void PortalHotKey::bindShortcut() {
    if (!m_receive)
        return; // too late
    m_patience.start();
    auto message = callTo(shortcutsInterface, u"BindShortcuts"_s);
    const QString parentWindow;
    message << QDBusObjectPath(m_session) << QVariant::fromValue(QList<PortalShortcut>{quickPaste})
            << parentWindow;
    auto* request = new PortalRequest(m_bus, message, {}, this);
    connect(request, &PortalRequest::accepted, &m_patience, &QTimer::stop);
    connect(request, &PortalRequest::refused, this, &PortalHotKey::fail);
    connect(request, &PortalRequest::granted, this,
            [this](const QVariantMap& results) { isBound(results) ? succeed() : fail(); });
}

void PortalHotKey::succeed() {
    if (!m_receive)
        return; // too late
    m_patience.stop();
    m_bus.connect(Portal::service, Portal::path, shortcutsInterface, u"Activated"_s, this,
                  SLOT(handleActivated(QDBusObjectPath, QString, qulonglong, QVariantMap)));
    setParent(nullptr);
    std::exchange(m_receive, nullptr)(std::unique_ptr<GlobalHotKey>(this));
}

void PortalHotKey::fail() {
    m_patience.stop();
    if (!m_receive)
        return;
    deleteLater();
    std::exchange(m_receive, nullptr)(nullptr);
}

void PortalHotKey::call(const QDBusMessage& message, std::function<void(bool)> receive) {
    m_patience.start();
    auto* reply = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, [this, reply, receive = std::move(receive)] {
        reply->deleteLater();
        if (m_receive)
            receive(!reply->isError());
    });
}

void PortalHotKey::handleActivated(const QDBusObjectPath& session, const QString& id, qulonglong,
                                   const QVariantMap& options) {
    if (session.path() != m_session || id != quickPaste.first)
        return;
    // With it, Qt is let put a window in front of the others. It looks for it here.
    if (const QString token = options.value(u"activation_token"_s).toString(); !token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
    press();
}

void PortalHotKey::handleClosed() {
    const bool wasRegistered = !m_receive && !m_session.isEmpty();
    m_session.clear();
    fail();
    if (wasRegistered)
        lose();
}

} // namespace Veilshot
