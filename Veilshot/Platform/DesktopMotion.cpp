#include "Veilshot/Platform/DesktopMotion.h"

#include <QSettings>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace Veilshot {

namespace {

bool doesGtkAnimate() {
    for (const QString& name : {u"gtk-4.0/settings.ini"_s, u"gtk-3.0/settings.ini"_s}) {
        const QString path = QStandardPaths::locate(QStandardPaths::GenericConfigLocation, name);
        if (path.isEmpty())
            continue;
        const QVariant value =
            QSettings(path, QSettings::IniFormat).value(u"Settings/gtk-enable-animations"_s);
        if (value.isValid())
            return value.toBool();
    }
    return true;
}

} // namespace

DesktopMotion::DesktopMotion(QDBusConnection bus, QObject* parent)
    : QObject(parent), m_areAnimationsEnabled(bus, u"org.gnome.desktop.interface"_s, u"enable-animations"_s) {
    connect(&m_areAnimationsEnabled, &PortalSetting::valueChanged, this, &DesktopMotion::update);
    update();
}

void DesktopMotion::update() {
    const QVariant& setting = m_areAnimationsEnabled.value();
    bool isOverridden = false;
    const int override = qEnvironmentVariableIntValue("VEILSHOT_REDUCED_MOTION", &isOverridden);
    const bool isReduced = isOverridden        ? override != 0
                           : setting.isValid() ? !setting.toBool()
                                               : !doesGtkAnimate();
    if (isReduced == m_isReduced)
        return;
    m_isReduced = isReduced;
    Q_EMIT isReducedChanged();
}

} // namespace Veilshot
