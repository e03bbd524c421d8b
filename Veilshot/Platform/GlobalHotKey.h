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

    /// Calls `handle` from the event loop if the registration ends by itself: the desktop's service goes, or
    /// the keyboard's new layout has no such key that is free. It may work again after a further change.
    void whenLost(std::function<void()> handle) { m_handleLoss = std::move(handle); }

protected:
    GlobalHotKey(QObject* context, Action action);

    /// For the back ends: the shortcut was pressed. Returns before the action runs.
    void press();
    /// For the back ends: the registration is gone.
    void lose();

private:
    std::shared_ptr<const Action> m_action; // may drop the registration, and has to survive that
    std::function<void()> m_handleLoss = [] {};
    QObject m_presses; // takes the pending ones along
};

} // namespace Veilshot
