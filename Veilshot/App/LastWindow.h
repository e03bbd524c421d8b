#pragma once

namespace Veilshot {

/// How the user could come back to an application that shows no window.
struct WaysBack {
    enum class Shortcut { pending, working, none };

    bool hasTrayHost = false;
    Shortcut shortcut = Shortcut::none; ///< pending while the desktop has not answered
    /// The quick-paste panel took the main window off the screen and went away itself.
    bool isMainWindowHeldBack = false;
};

enum class LastWindowPlan {
    stay,
    wait, ///< until it is known whether the shortcut works
    showMainWindow,
    quit,
};

/// What to do when no window is visible any more, so that nobody is left with a process out of reach, nor
/// loses the picture that a panel only hid.
LastWindowPlan planAfterLastWindow(const WaysBack& ways);

} // namespace Veilshot
