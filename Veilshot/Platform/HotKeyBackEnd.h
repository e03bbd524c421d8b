#pragma once

#include <QString>

namespace Veilshot {

/// What can give a program a key while another one is in front.
enum class HotKeyBackEnd { none, x11, portal };

/// What decides which of them works.
struct HotKeyEnvironment {
    QString platform;       ///< Qt's, as in QGuiApplication::platformName()
    QString sessionType;    ///< XDG_SESSION_TYPE
    QString waylandDisplay; ///< WAYLAND_DISPLAY
    bool isX11BuiltIn = false;

    /// That of this process. Needs a QGuiApplication.
    static HotKeyEnvironment current();
};

/// The one that works there. On a Wayland desktop that is never X11: an X server there sees the keyboard only
/// while a window of its own has the focus, so that a registration would succeed and be worth nothing.
HotKeyBackEnd hotKeyBackEndFor(const HotKeyEnvironment& environment);

} // namespace Veilshot
