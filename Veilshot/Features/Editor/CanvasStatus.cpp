#include "Veilshot/Features/Editor/CanvasStatus.h"

using namespace Qt::StringLiterals;

namespace Veilshot {

std::optional<CanvasStatus> CanvasStatus::choose(const Context& context) {
    if (context.isDropTargeted)
        return CanvasStatus{u"Drop to replace this screenshot"_s};
    if (context.stage == EditorStore::Stage::Scanning)
        return CanvasStatus{context.scanMessage.isEmpty() ? u"Scanning…"_s : context.scanMessage, true};
    if (context.didCopy)
        return CanvasStatus{u"Copied to clipboard"_s};
    if (context.isAddingCustomBlur)
        return CanvasStatus{u"Drag over the image to blur an area"_s};
    return std::nullopt;
}

} // namespace Veilshot
