#pragma once

#include "Veilshot/Features/Editor/EditorStore.h"

#include <QString>
#include <optional>

namespace Veilshot {

/// The one pill over the canvas.
struct CanvasStatus {
    QString text;
    bool isBusy = false; ///< with a progress indicator

    friend bool operator==(const CanvasStatus&, const CanvasStatus&) = default;

    struct Context {
        bool isDropTargeted = false;
        EditorStore::Stage stage = EditorStore::Stage::Empty;
        QString scanMessage = {};
        bool didCopy = false;
        bool isAddingCustomBlur = false;
    };
    /// The first that applies, or nothing: a drag over the window, a scan, a copy, drawing.
    static std::optional<CanvasStatus> choose(const Context& context);
};

} // namespace Veilshot
