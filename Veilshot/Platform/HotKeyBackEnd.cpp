#include "Veilshot/Platform/HotKeyBackEnd.h"

#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace Veilshot {

HotKeyEnvironment HotKeyEnvironment::current() {
    return {.platform = QGuiApplication::platformName(),
            .sessionType = qEnvironmentVariable("XDG_SESSION_TYPE"),
            .waylandDisplay = qEnvironmentVariable("WAYLAND_DISPLAY"),
#ifdef VEILSHOT_X11
            .isX11BuiltIn = true
#endif
    };
}

HotKeyBackEnd hotKeyBackEndFor(const HotKeyEnvironment& environment) {
    const bool isX11Client = environment.platform == "xcb"_L1;
    const bool isWaylandClient = environment.platform.startsWith("wayland"_L1);
    if (!isX11Client && !isWaylandClient)
        return HotKeyBackEnd::none; // nothing on a screen
    const bool isWaylandDesktop =
        isWaylandClient || environment.sessionType == "wayland"_L1 || !environment.waylandDisplay.isEmpty();
    return isWaylandDesktop || !environment.isX11BuiltIn ? HotKeyBackEnd::portal : HotKeyBackEnd::x11;
}

} // namespace Veilshot
