#pragma once

#include "Veilshot/Features/Editor/EditorStore.h"

#include <QKeySequence>
#include <QString>
#include <optional>
#include <vector>

namespace Veilshot {

/// One line of the menu bar item's menu.
struct MenuBarEntry {
    enum class Command { quickPaste, showWindow, copyProtectedImage, openSettings, quit };
    enum class Kind { action, status, separator };

    Kind kind = Kind::separator;
    QString text = {};
    std::optional<Command> command = {}; ///< of an action only
    QKeySequence shortcut = {};          ///< shown beside the text, nothing more

    friend bool operator==(const MenuBarEntry&, const MenuBarEntry&) = default;

    struct Context {
        EditorStore::Stage stage = EditorStore::Stage::Empty;
        QString scanMessage = {};
        qsizetype regionCount = 0;
    };
    /// The whole menu, from top to bottom.
    static std::vector<MenuBarEntry> list(const Context& context);
};

} // namespace Veilshot
