#include "Veilshot/Platform/DesktopColorScheme.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

const QString portalService = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString settingsInterface = u"org.freedesktop.portal.Settings"_s;
const QString appearanceSpace = u"org.freedesktop.appearance"_s;
const QString colorSchemeKey = u"color-scheme"_s;

constexpr int longestWait = 250; // ms

/// The setting as the portal returns it: a variant, which older portals put into another one.
uint preferenceIn(QVariant value) {
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value.toUInt();
}

} // namespace

DesktopColorScheme::DesktopColorScheme(QDBusConnection bus, QObject* parent) : QObject(parent) {
    qRegisterMetaType<QDBusVariant>(); // or Qt does not find the slot for the signal
    bus.connect(portalService, portalPath, settingsInterface, u"SettingChanged"_s, this,
                SLOT(handlePortalChange(QString, QString, QDBusVariant)));
    auto question = QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface, u"Read"_s);
    question << appearanceSpace << colorSchemeKey;
    const QDBusMessage answer = bus.call(question, QDBus::Block, longestWait);
    takeAnswer(answer);
    if (QDBusError(answer).type() == QDBusError::NoReply) {
        // A portal that has to be started first may take its time.
        auto* later = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
        connect(later, &QDBusPendingCallWatcher::finished, this, [this, later] {
            takeAnswer(later->reply());
            later->deleteLater();
            update();
        });
    }
    update();
    qGuiApp->installEventFilter(this);
}

void DesktopColorScheme::takeAnswer(const QDBusMessage& answer) {
    if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty())
        m_preference = Preference(preferenceIn(answer.arguments().constFirst()));
}

bool DesktopColorScheme::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange)
        update();
    return QObject::eventFilter(watched, event);
}

void DesktopColorScheme::handlePortalChange(const QString& space, const QString& key,
                                            const QDBusVariant& value) {
    if (space != appearanceSpace || key != colorSchemeKey)
        return;
    m_preference = Preference(preferenceIn(value.variant()));
    update();
}

void DesktopColorScheme::update() {
    const bool isPaletteDark = QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
    const bool isDark = m_preference == Preference::dark    ? true
                        : m_preference == Preference::light ? false
                                                            : isPaletteDark;
    if (isDark == m_isDark)
        return;
    m_isDark = isDark;
    Q_EMIT isDarkChanged();
}

} // namespace Veilshot
