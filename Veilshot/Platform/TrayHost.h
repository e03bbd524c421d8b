#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <memory>
#include <optional>

class QDBusPendingCallWatcher;

namespace Veilshot {

class EmbeddingTray;

/// Whether there is a tray now that an icon can be shown in: one that asks for icons over the bus, or else,
/// on X11, one that embeds their windows. Nothing is waited for: `isPresent` is false until the bus has
/// answered, which takes some turns of the event loop, and follows from then on. Main thread only; needs a
/// QGuiApplication.
///
/// Once there was a tray, only trays of its kind count, because icons keep to the kind they began with.
class TrayHost : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isPresent READ isPresent NOTIFY isPresentChanged)

public:
    /// How the tray shows icons: it draws what it is told over the bus, or takes their windows into its own.
    enum class Kind { undecided, onBus, embedding };

    explicit TrayHost(QDBusConnection bus = QDBusConnection::sessionBus(), QObject* parent = nullptr);
    ~TrayHost() override;

    bool isPresent() const { return m_isPresent; }
    /// Decided when there is the first tray, and for good.
    Kind kind() const { return m_kind; }

Q_SIGNALS:
    void isPresentChanged();

private Q_SLOTS:
    void askWatcher();

private:
    void update();
    void settleForEmbedding();

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcherOwner;
    QPointer<QDBusPendingCallWatcher> m_question;
    std::optional<bool> m_isOnBus;
    std::unique_ptr<EmbeddingTray> m_embeddingTray;
    QTimer m_grace;
    Kind m_kind = Kind::undecided;
    bool m_isPresent = false;
};

} // namespace Veilshot
