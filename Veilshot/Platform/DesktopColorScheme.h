#pragma once

#include "Veilshot/Platform/PortalSetting.h"

#include <QDBusConnection>
#include <QObject>

namespace Veilshot {

/// Whether the desktop is set to dark, and when that changes. Asks the desktop portal; where there is none,
/// or it has no preference, the lightness of the application's palette decides. Main thread only; needs a
/// QGuiApplication.
class DesktopColorScheme : public QObject {
    Q_OBJECT

public:
    /// Waits for the portal for a moment at most, so that the first window has its colours from the start.
    explicit DesktopColorScheme(QDBusConnection bus = QDBusConnection::sessionBus(),
                                QObject* parent = nullptr);

    bool isDark() const { return m_isDark; }

Q_SIGNALS:
    void isDarkChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void update();

    PortalSetting m_preference;
    bool m_isDark = false;
};

} // namespace Veilshot
