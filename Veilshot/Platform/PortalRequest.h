#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>

namespace Veilshot {

/// A question to the desktop portal that the portal may ask the user: it takes the call at once and answers
/// later, when the user has. Emits one of `granted` and `refused`, once. Dropping it takes the question back.
class PortalRequest : public QObject {
    Q_OBJECT

public:
    /// Sends the call. `options`, which every such call has, goes behind its other arguments.
    PortalRequest(QDBusConnection bus, QDBusMessage call, QVariantMap options, QObject* parent);
    ~PortalRequest() override;

Q_SIGNALS:
    /// The portal works on it. Only the user decides from here on how long it takes.
    void accepted();
    void granted(const QVariantMap& results);
    /// By the user or by the portal.
    void refused();

private Q_SLOTS:
    void handleResponse(uint code, const QVariantMap& results);

private:
    QDBusConnection m_bus;
    QString m_path;
    bool m_isOpen = true;
};

} // namespace Veilshot
