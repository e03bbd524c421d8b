#pragma once

#include <QString>

namespace Veilshot {

/// What a start of the program wants to see.
struct WindowRequest {
    enum class Action {
        show,       ///< the main window
        openImage,  ///< the main window with `image`
        quickPaste, ///< the quick-paste panel
        nothingYet, ///< the desktop started the program and says over D-Bus what it wants
    };

    Action action = Action::show;
    QString image; ///< the path of a file
};

} // namespace Veilshot
