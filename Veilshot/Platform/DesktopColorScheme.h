#pragma once

#include <QDBusConnection>
#include <QDBusVariant> // a slot's argument must be a complete type to be connected to a bus
#include <QObject>

class QDBusMessage;

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

private Q_SLOTS:
    void handlePortalChange(const QString& space, const QString& key, const QDBusVariant& value);

private:
    /// The values of the portal's setting "color-scheme".
    enum class Preference : uint { none = 0, dark = 1, light = 2 };

    void takeAnswer(const QDBusMessage& answer);
    void update();

    Preference m_preference = Preference::none;
    bool m_isDark = false;
};

} // namespace Veilshot
