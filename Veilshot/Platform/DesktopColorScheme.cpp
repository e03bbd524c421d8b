#include "Veilshot/Platform/DesktopColorScheme.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

/// The values of the portal's setting.
enum class Preference : uint { none = 0, dark = 1, light = 2 };

} // namespace

DesktopColorScheme::DesktopColorScheme(QDBusConnection bus, QObject* parent)
    : QObject(parent), m_preference(bus, u"org.freedesktop.appearance"_s, u"color-scheme"_s) {
    connect(&m_preference, &PortalSetting::valueChanged, this, &DesktopColorScheme::update);
    update();
    qGuiApp->installEventFilter(this);
}

bool DesktopColorScheme::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange)
        update();
    return QObject::eventFilter(watched, event);
}

void DesktopColorScheme::update() {
    const bool isPaletteDark = QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
    const auto preference = Preference(m_preference.value().toUInt());
    const bool isDark = preference == Preference::dark    ? true
                        : preference == Preference::light ? false
                                                          : isPaletteDark;
    if (isDark == m_isDark)
        return;
    m_isDark = isDark;
    Q_EMIT isDarkChanged();
}

} // namespace Veilshot
