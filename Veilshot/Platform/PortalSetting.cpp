#include "Veilshot/Platform/PortalSetting.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

const QString portalService = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString settingsInterface = u"org.freedesktop.portal.Settings"_s;

constexpr int longestWait = 250; // ms

} // namespace

PortalSetting::PortalSetting(QDBusConnection bus, const QString& space, const QString& key)
    : m_space(space), m_key(key) {
    qRegisterMetaType<QDBusVariant>(); // or Qt does not find the slot for the signal
    bus.connect(portalService, portalPath, settingsInterface, u"SettingChanged"_s, this,
                SLOT(handleChange(QString, QString, QDBusVariant)));
    auto question = QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface, u"Read"_s);
    question << space << key;
    const QDBusMessage answer = bus.call(question, QDBus::Block, longestWait);
    takeAnswer(answer);
    if (QDBusError(answer).type() == QDBusError::NoReply) {
        // A portal that has to be started first may take its time.
        auto* later = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
        connect(later, &QDBusPendingCallWatcher::finished, this, [this, later] {
            takeAnswer(later->reply());
            later->deleteLater();
        });
    }
}

void PortalSetting::takeAnswer(const QDBusMessage& answer) {
    if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty())
        take(answer.arguments().constFirst());
}

void PortalSetting::handleChange(const QString& space, const QString& key, const QDBusVariant& value) {
    if (space == m_space && key == m_key)
        take(value.variant());
}

void PortalSetting::take(const QVariant& value) {
    m_value = value;
    // A variant, which older portals put into another one.
    while (m_value.canConvert<QDBusVariant>())
        m_value = m_value.value<QDBusVariant>().variant();
    Q_EMIT valueChanged();
}

} // namespace Veilshot
