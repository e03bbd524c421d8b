#pragma once

#include <cstdint>
#include <optional>

struct xcb_connection_t;

namespace Veilshot {

/// Super+Shift+B in the terms of an X server, as its keyboard is laid out at the moment.
struct X11Shortcut {
    std::uint8_t key = 0;        ///< key code
    std::uint16_t modifiers = 0; ///< what has to be held, as a mask of X modifiers
    std::uint16_t locks = 0;     ///< Caps Lock, Num Lock and Scroll Lock, which may be on or off

    /// Asks the server, and waits for it. The key is the one that types b in the current layout, otherwise in
    /// another one of the keyboard's layouts, otherwise the one that is labelled B on most keyboards. None if
    /// no Super key is a modifier, or the server does not know XKB.
    static std::optional<X11Shortcut> find(xcb_connection_t* connection);

    bool operator==(const X11Shortcut&) const = default;
};

} // namespace Veilshot
