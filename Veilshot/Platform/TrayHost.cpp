#include "Veilshot/Platform/TrayHost.h"

#include "Veilshot/Platform/EmbeddingTray.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QGuiApplication>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Veilshot {

namespace {

// Trays and icons find each other through this service. It may run without any tray.
const QString watcherService = u"org.kde.StatusNotifierWatcher"_s;
const QString watcherPath = u"/StatusNotifierWatcher"_s;
const QString watcherInterface = watcherService;

// Panels that are trays of both kinds may be the lesser one first.
constexpr std::chrono::milliseconds grace = 1s;

} // namespace

TrayHost::TrayHost(QDBusConnection bus, QObject* parent)
    : QObject(parent), m_bus(std::move(bus)),
      m_watcherOwner(watcherService, m_bus, QDBusServiceWatcher::WatchForOwnerChange) {
    if (QGuiApplication::platformName() == u"xcb") {
        m_embeddingTray = std::make_unique<EmbeddingTray>();
        connect(m_embeddingTray.get(), &EmbeddingTray::isPresentChanged, this, &TrayHost::update);
    }
    m_grace.setSingleShot(true);
    m_grace.setInterval(grace);
    connect(&m_grace, &QTimer::timeout, this, &TrayHost::settleForEmbedding);
    connect(&m_watcherOwner, &QDBusServiceWatcher::serviceOwnerChanged, this, [this] {
        if (m_isOnBus) {
            m_isOnBus = false; // whatever the next one says, icons have to go to it anew
            update();
        }
        askWatcher();
    });
    for (const QString& change : {u"StatusNotifierHostRegistered"_s, u"StatusNotifierHostUnregistered"_s})
        m_bus.connect(watcherService, watcherPath, watcherInterface, change, this, SLOT(askWatcher()));
    askWatcher();
}

TrayHost::~TrayHost() = default;

void TrayHost::askWatcher() {
    auto question = QDBusMessage::createMethodCall(watcherService, watcherPath,
                                                   u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << watcherInterface << u"IsStatusNotifierHostRegistered"_s;
    question.setAutoStartService(false);
    delete m_question; // whose answer may be outdated
    m_question = new QDBusPendingCallWatcher(m_bus.asyncCall(question), this);
    connect(m_question, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* call) {
        const QDBusPendingReply<QDBusVariant> answer = *call;
        m_isOnBus = answer.isValid() && answer.value().variant().toBool();
        call->deleteLater();
        update();
    });
}

void TrayHost::update() {
    if (!m_isOnBus)
        return; // its answer has the first word
    const bool isEmbedding = m_embeddingTray && m_embeddingTray->isPresent();
    if (m_kind == Kind::undecided && *m_isOnBus)
        m_kind = Kind::onBus;
    if (m_kind == Kind::undecided && isEmbedding && !m_grace.isActive())
        m_grace.start();
    const bool isPresent = m_kind == Kind::onBus ? *m_isOnBus : m_kind == Kind::embedding && isEmbedding;
    if (isPresent == m_isPresent)
        return;
    m_isPresent = isPresent;
    Q_EMIT isPresentChanged();
}

void TrayHost::settleForEmbedding() {
    if (m_kind != Kind::undecided || !m_embeddingTray->isPresent())
        return;
    m_kind = Kind::embedding;
    update();
}

} // namespace Veilshot
