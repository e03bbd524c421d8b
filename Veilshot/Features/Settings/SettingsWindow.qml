pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Window
import Veilshot.DesignSystem
import Veilshot.Features

/// The settings window. Its size is that of its content.
Window {
    id: window

    required property HistoryStore history
    required property AppearanceSetting appearance

    width: view.implicitWidth
    height: view.implicitHeight
    minimumWidth: view.implicitWidth
    maximumWidth: view.implicitWidth
    minimumHeight: view.implicitHeight
    maximumHeight: view.implicitHeight
    flags: Qt.Dialog
    title: "Settings"
    color: Theme.windowBackground

    Shortcut {
        sequences: ["Escape", StandardKey.Close]
        onActivated: window.close()
    }

    Shortcut {
        sequences: ["Ctrl+Q", "Meta+Q"]
        onActivated: Qt.quit()
    }

    SettingsView {
        id: view

        anchors.fill: parent
        focus: true
        history: window.history
        appearance: window.appearance
    }
}
