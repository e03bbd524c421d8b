#pragma once

#include <Qt>

namespace Veilshot {

/// What a key does in the panel, wherever in it the keyboard is. Command is Control here, and the Super key
/// does as well.
namespace QuickPasteKey {

enum class Action { paste, cancel, standard };

Action action(int key, Qt::KeyboardModifiers modifiers);

} // namespace QuickPasteKey

} // namespace Veilshot
