#pragma once

#include "Veilshot/App/ActivationToken.h"
#include "Veilshot/App/WindowRequest.h"

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QVariantList>

namespace Veilshot {

/// The running application as desktops and later starts reach it: org.freedesktop.Application under
/// `serviceName`, of which a session has one.
class ApplicationService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// Also the name of the desktop file.
    static const QString serviceName;

    enum class Start {
        first,      ///< this process is the application now, or there is no bus to ask on
        handedOver, ///< another one has taken the request
        unanswered, ///< another one has the name but does not take the request
    };

    explicit ApplicationService(const QDBusConnection& bus, QObject* parent = nullptr);
    /// From now on another start is the first one.
    ~ApplicationService() override;

    /// Blocks until the other process has taken the request, for ten seconds at most. Requests that come to
    /// this one wait for its event loop.
    Start start(const WindowRequest& request, const ActivationToken& token);

public Q_SLOTS:
    Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
    /// Takes the first file; the others are passed over, as the application works on one picture.
    Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platformData);
    Q_SCRIPTABLE void ActivateAction(const QString& action, const QVariantList& parameter,
                                     const QVariantMap& platformData);

Q_SIGNALS:
    void requested(const Veilshot::WindowRequest& request);

private:
    bool becomeFirst();
    bool handOver(const WindowRequest& request, const ActivationToken& token);
    void receive(const WindowRequest& request, const QVariantMap& platformData);

    QDBusConnection m_bus;
    bool m_isFirst = false;
};

} // namespace Veilshot
