#include "Veilshot/Features/QuickPaste/QuickPasteKey.h"

namespace Veilshot {

QuickPasteKey::Action QuickPasteKey::action(int key, Qt::KeyboardModifiers modifiers) {
    const Qt::KeyboardModifiers command = Qt::ControlModifier | Qt::MetaModifier;
    if (key == Qt::Key_V && (modifiers & command))
        return Action::paste;
    return key == Qt::Key_Escape ? Action::cancel : Action::standard;
}

} // namespace Veilshot
