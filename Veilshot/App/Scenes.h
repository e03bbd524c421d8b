#pragma once

#include <QObject>
#include <QQuickWindow>
#include <QVariantMap>
#include <map>
#include <memory>

class QQmlEngine;

namespace Veilshot {

/// The application's windows, each made when it is first opened and kept until the end; closing one hides it.
class Scenes : public QObject {
    Q_OBJECT

public:
    enum class Id { main, onboarding, settings, about, updates };

    /// `properties` are what the windows need, by name; each gets those that it has. The engine must outlive
    /// the scenes.
    Scenes(QQmlEngine& engine, QVariantMap properties, QObject* parent = nullptr);
    ~Scenes() override;

    /// The window, made if need be, not shown by this. A view that cannot be made ends the program with the
    /// reason.
    QQuickWindow& window(Id id);
    /// Shows the window in front of all others.
    void open(Id id);
    bool isAnyVisible() const;

Q_SIGNALS:
    void visibleChanged(Veilshot::Scenes::Id id, bool isVisible);

private:
    QQuickWindow& make(Id id);

    QQmlEngine& m_engine;
    QVariantMap m_properties;
    std::map<Id, std::unique_ptr<QQuickWindow>> m_windows;
};

} // namespace Veilshot
