#pragma once

#include "Veilshot/Platform/GlobalHotKey.h"
#include "Veilshot/Platform/X11Shortcut.h"

#include <QAbstractNativeEventFilter>
#include <QTimer>

namespace Veilshot {

/// The shortcut on an X server, by grabbing its key, also while Caps Lock, Num Lock or Scroll Lock is on. It
/// moves along when the keyboard's layout changes; should the key then belong to another program, presses
/// stop until the next change.
///
/// It shares Qt's connection to the server because Qt learns the time of the press that way, without which
/// window managers do not let the application's window have the focus.
class X11HotKey : public GlobalHotKey, QAbstractNativeEventFilter {
public:
    /// Null if another program holds the key, or the application does not run on an X server.
    static std::unique_ptr<GlobalHotKey> create(QObject* context, Action action);

    ~X11HotKey() override;

private:
    X11HotKey(xcb_connection_t* connection, QObject* context, Action action);

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    void followLayout();
    /// All of it or nothing.
    bool grab(const X11Shortcut& shortcut);
    void release();

    xcb_connection_t* m_connection;
    std::uint32_t m_root;
    std::uint8_t m_keyboardEvent; // the code of XKB's events on this server
    std::optional<X11Shortcut> m_grabbed;
    std::optional<std::uint32_t> m_releasedAt; // the server's time
    QTimer m_layoutChange;                     // changes come in swarms
};

} // namespace Veilshot
