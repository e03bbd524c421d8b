#pragma once

#include "Veilshot/Platform/GlobalHotKey.h"

#include <QDBusConnection>
#include <QDBusObjectPath> // a slot's argument must be a complete type to be connected to a bus
#include <QTimer>
#include <QVariantMap>
#include <chrono>

class QDBusMessage;

namespace Veilshot {

/// The shortcut by the desktop portal, which asks the user for permission and may let them choose other keys.
/// When the portal goes away or ends the session, presses stop; nothing tells of that.
class PortalHotKey : public QObject, public GlobalHotKey {
    Q_OBJECT

public:
    /// Receives null if there is no portal, it knows no shortcuts, somebody says no, or the portal takes
    /// longer than `patience` over a step in which the user has no part. The bus must be one on which nobody
    /// has spoken to the portal yet.
    static void create(const QDBusConnection& bus, QObject* context, Action action, Receive receive,
                       std::chrono::milliseconds patience = std::chrono::seconds(10));

    /// Ends the portal's session.
    ~PortalHotKey() override;

private Q_SLOTS:
    void handleActivated(const QDBusObjectPath& session, const QString& id, qulonglong time,
                         const QVariantMap& options);
    void handleClosed();

private:
    PortalHotKey(const QDBusConnection& bus, QObject* context, Action action, Receive receive,
                 std::chrono::milliseconds patience);

    // The steps of the registration.
    void introduceApplication();
    void askForVersion();
    void openSession();
    void bindShortcut();
    void succeed();
    void fail();

    void call(const QDBusMessage& message, std::function<void(bool isAnswered)> receive);

    QDBusConnection m_bus;
    QString m_session; // empty unless it is open
    Receive m_receive; // empty as soon as it was called
    QTimer m_patience;
};

} // namespace Veilshot
