pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Window
import Veilshot.App
import Veilshot.DesignSystem
import Veilshot.Features

/// The main window. Closing it only hides it.
Window {
    id: window

    objectName: "Veilshot.MainWindow"

    required property EditorStore store
    required property HistoryStore history
    required property HistoryActions historyActions
    required property ImageImporter importer
    required property AppCommands commands
    required property CheckForUpdatesViewModel updates

    width: 1080
    height: 720
    minimumWidth: 860
    minimumHeight: 620
    title: "Veilshot"
    color: Theme.windowBackground

    Shortcut {
        sequences: ["Ctrl+Shift+B", "Meta+Shift+B"]
        autoRepeat: false
        onActivated: window.commands.quickPasteRequested()
    }

    Shortcut {
        sequences: ["Ctrl+W", "Meta+W"]
        onActivated: window.close()
    }

    Shortcut {
        sequences: ["Ctrl+Q", "Meta+Q"]
        onActivated: window.commands.quitRequested()
    }

    MainMenu {
        id: menu

        width: parent.width
        enabled: !view.isCovered
        store: window.store
        importer: window.importer
        commands: window.commands
        updates: window.updates
        onCloseRequested: window.close()
    }

    EditorView {
        id: view

        anchors.fill: parent
        anchors.topMargin: menu.height
        focus: true
        store: window.store
        history: window.history
        historyActions: window.historyActions
        importer: window.importer
        onSettingsRequested: window.commands.settingsRequested()
    }
}
