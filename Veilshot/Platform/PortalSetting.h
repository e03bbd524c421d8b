#pragma once

#include <QDBusConnection>
#include <QDBusVariant> // a slot's argument must be a complete type to be connected to a bus
#include <QObject>

class QDBusMessage;

namespace Veilshot {

/// A setting of the desktop as its portal tells it, and when it changes. Main thread only.
class PortalSetting : public QObject {
    Q_OBJECT

public:
    /// Waits for the portal for a moment at most; a later answer is taken as a change.
    PortalSetting(QDBusConnection bus, const QString& space, const QString& key);

    /// Invalid where there is no portal, or it does not know the setting.
    const QVariant& value() const { return m_value; }

Q_SIGNALS:
    void valueChanged();

private Q_SLOTS:
    void handleChange(const QString& space, const QString& key, const QDBusVariant& value);

private:
    void takeAnswer(const QDBusMessage& answer);
    void take(const QVariant& value);

    QString m_space;
    QString m_key;
    QVariant m_value;
};

} // namespace Veilshot
