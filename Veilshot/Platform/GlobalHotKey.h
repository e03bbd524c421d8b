#pragma once

#include <QObject>
#include <functional>
#include <memory>

namespace Veilshot {

/// The keyboard shortcut Super+Shift+B, whatever program is in front. One object is one registration;
/// dropping it gives the shortcut back. Main thread only; needs a QGuiApplication.
class GlobalHotKey {
public:
    using Action = std::function<void()>;
    using Receive = std::function<void(std::unique_ptr<GlobalHotKey>)>;

    /// Registers the shortcut in the way that works on this desktop and calls `receive` exactly once: with
    /// the registration, which the receiver owns, or with null if there is none, for example because another
    /// program holds the shortcut or the user says no. On X11 that is before this function returns; on
    /// Wayland the user may think about it for as long as they like.
    ///
    /// `action` runs from the event loop, once per press however long the key is held. It does not run after
    /// the registration was dropped, not even for a press before that. Nothing is called once `context` is
    /// gone.
    static void create(QObject* context, Action action, Receive receive);

    virtual ~GlobalHotKey() = default;

protected:
    GlobalHotKey(QObject* context, Action action);

    /// For the back ends: the shortcut was pressed. Returns before the action runs.
    void press();

private:
    std::shared_ptr<const Action> m_action; // may drop the registration, and has to survive that
    QObject m_presses;                      // takes the pending ones along
};

} // namespace Veilshot
