pragma ComponentBehavior: Bound

import QtQuick
import Veilshot.App
import Veilshot.DesignSystem
import Veilshot.Features

/// The menus of the main window. The shortcuts of the editing commands are those of its toolbar.
MenuBar {
    id: menu

    required property EditorStore store
    required property ImageImporter importer
    required property AppCommands commands
    required property CheckForUpdatesViewModel updates

    signal closeRequested

    readonly property bool isReady: store.stage === EditorStore.Ready

    ContextMenu {
        title: "&File"

        ContextMenuItem {
            text: "Open Image…"
            shortcutText: "Ctrl+O"
            onTriggered: menu.importer.present()
        }
        ContextMenuItem {
            text: "Quick Paste…"
            shortcutText: "Ctrl+Shift+B"
            onTriggered: menu.commands.quickPasteRequested()
        }
        ContextMenuDivider {}
        ContextMenuItem {
            text: "Export PNG…"
            shortcutText: "Ctrl+S"
            enabled: menu.isReady
            onTriggered: Qt.callLater(menu.store.exportProtectedImage)
        }
        ContextMenuDivider {}
        ContextMenuItem {
            text: "Close Window"
            shortcutText: "Ctrl+W"
            onTriggered: menu.closeRequested()
        }
        ContextMenuItem {
            text: "Quit Veilshot"
            shortcutText: "Ctrl+Q"
            onTriggered: menu.commands.quitRequested()
        }
    }

    ContextMenu {
        title: "&Edit"

        ContextMenuItem {
            text: "Paste Screenshot"
            shortcutText: "Ctrl+V"
            onTriggered: menu.store.pasteFromClipboard()
        }
        ContextMenuItem {
            text: "Copy Protected Image"
            shortcutText: "Ctrl+Shift+C"
            enabled: menu.isReady
            onTriggered: menu.store.copyProtectedImage()
        }
        ContextMenuDivider {}
        ContextMenuItem {
            text: menu.store.isAddingCustomBlur ? "Done Adding Blur" : "Add Custom Blur"
            enabled: menu.isReady
            onTriggered: menu.store.isAddingCustomBlur = !menu.store.isAddingCustomBlur
        }
        ContextMenuItem {
            text: "Start Over"
            enabled: menu.store.stage !== EditorStore.Empty
            onTriggered: menu.store.clear()
        }
        ContextMenuDivider {}
        ContextMenuItem {
            text: "Settings…"
            shortcutText: "Ctrl+,"
            onTriggered: menu.commands.settingsRequested()
        }
    }

    ContextMenu {
        title: "&Help"

        ContextMenuItem {
            text: "About Veilshot"
            onTriggered: menu.commands.aboutRequested()
        }
        ContextMenuItem {
            text: "Check for Updates…"
            enabled: menu.updates.canCheckForUpdates
            onTriggered: menu.updates.checkForUpdates()
        }
    }
}
