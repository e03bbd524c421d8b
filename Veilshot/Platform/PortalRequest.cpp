#include "Veilshot/Platform/PortalRequest.h"

#include "Veilshot/Platform/Portal.h"

#include <QDBusPendingCallWatcher>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

const QString requestInterface = u"org.freedesktop.portal.Request"_s;

} // namespace

PortalRequest::PortalRequest(QDBusConnection bus, QDBusMessage call, QVariantMap options, QObject* parent)
    : QObject(parent), m_bus(bus) {
    // The portal asks for names that cannot be guessed.
    const QString token = u"veilshot_"_s + QString::number(QRandomGenerator::system()->generate64(), 16);
    m_path = Portal::objectPath(m_bus, u"request"_s, token);
    // Before the call, or the answer may come too early to be heard.
    m_bus.connect(Portal::service, m_path, requestInterface, u"Response"_s, this,
                  SLOT(handleResponse(uint, QVariantMap)));
    options.insert(u"handle_token"_s, token);
    call << options;
    auto* reply = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, [this, reply] {
        reply->deleteLater();
        if (!reply->isError()) {
            Q_EMIT accepted();
        } else if (m_isOpen) {
            m_isOpen = false;
            Q_EMIT refused();
        }
    });
}

PortalRequest::~PortalRequest() {
    if (m_isOpen)
        m_bus.send(QDBusMessage::createMethodCall(Portal::service, m_path, requestInterface, u"Close"_s));
}

void PortalRequest::handleResponse(uint code, const QVariantMap& results) {
    if (!m_isOpen)
        return;
    m_isOpen = false;
    if (code == 0)
        Q_EMIT granted(results);
    else
        Q_EMIT refused();
}

} // namespace Veilshot
