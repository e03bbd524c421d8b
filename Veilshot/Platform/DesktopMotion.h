#pragma once

#include "Veilshot/Platform/PortalSetting.h"

#include <QDBusConnection>
#include <QObject>

namespace Veilshot {

/// Whether the user wants to be spared motion on the desktop, and when that changes. Asks the desktop portal;
/// where that does not know, the settings file of GTK, which KDE's settings write as well, is read at the
/// start. Without either there is motion. The environment variable VEILSHOT_REDUCED_MOTION, 1 or 0, overrides
/// them all. Main thread only.
class DesktopMotion : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isReduced READ isReduced NOTIFY isReducedChanged)

public:
    /// Waits for the portal for a moment at most, so that nothing moves that should not.
    explicit DesktopMotion(QDBusConnection bus = QDBusConnection::sessionBus(), QObject* parent = nullptr);

    bool isReduced() const { return m_isReduced; }

Q_SIGNALS:
    void isReducedChanged();

private:
    void update();

    PortalSetting m_areAnimationsEnabled;
    bool m_isReduced = false;
};

} // namespace Veilshot
