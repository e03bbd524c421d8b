pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Veilshot.DesignSystem
import Veilshot.Features

/// The window's commands and their shortcuts. Command is Control here, and the Super key does as well.
Rectangle {
    id: toolbar

    required property EditorStore store
    required property EditorPresenter presenter
    required property ImageImporter importer
    /// False while something lies over the window that has shortcuts of its own.
    required property bool areShortcutsEnabled

    signal settingsRequested

    implicitHeight: 48
    color: Theme.surface

    Shortcut {
        sequences: ["Ctrl+V", "Meta+V"]
        enabled: toolbar.areShortcutsEnabled
        onActivated: toolbar.store.pasteFromClipboard()
    }

    Shortcut {
        sequences: ["Ctrl+O", "Meta+O"]
        enabled: toolbar.areShortcutsEnabled
        onActivated: toolbar.importer.present()
    }

    Shortcut {
        sequences: ["Ctrl+Shift+C", "Meta+Shift+C"]
        enabled: toolbar.areShortcutsEnabled && toolbar.presenter.isReady
        onActivated: toolbar.store.copyProtectedImage()
    }

    Shortcut {
        sequences: ["Ctrl+S", "Meta+S"]
        enabled: toolbar.areShortcutsEnabled && toolbar.presenter.isReady
        onActivated: toolbar.store.exportProtectedImage()
    }

    Shortcut {
        sequences: ["Ctrl+,", "Meta+,"]
        onActivated: toolbar.settingsRequested()
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 12
        anchors.rightMargin: 12
        spacing: 4

        ToolbarButton {
            label: "Paste Screenshot"
            symbol: "doc.on.clipboard"
            helpText: "Paste a screenshot from the clipboard"
            onClicked: toolbar.store.pasteFromClipboard()
        }

        ToolbarButton {
            label: "Open Image"
            symbol: "folder"
            helpText: "Open an image file"
            onClicked: toolbar.importer.present()
        }

        Item {
            Layout.fillWidth: true
        }

        ToolbarButton {
            readonly property bool isDrawing: toolbar.store.isAddingCustomBlur

            label: isDrawing ? "Done Adding Blur" : "Add Custom Blur"
            symbol: isDrawing ? "checkmark" : "rectangle.dashed"
            helpText: isDrawing ? "Finish adding custom blur regions" : "Drag over the image to blur another area"
            enabled: toolbar.presenter.isReady
            onClicked: toolbar.store.isAddingCustomBlur = !isDrawing
        }

        ToolbarButton {
            label: toolbar.store.didCopy ? "Copied" : "Copy Protected Image"
            symbol: toolbar.store.didCopy ? "checkmark" : "doc.on.doc"
            helpText: "Copy the protected image to the clipboard"
            enabled: toolbar.presenter.isReady
            onClicked: toolbar.store.copyProtectedImage()
        }

        ToolbarButton {
            label: "Export PNG"
            symbol: "square.and.arrow.up"
            helpText: "Export the protected image as PNG"
            enabled: toolbar.presenter.isReady
            onClicked: toolbar.store.exportProtectedImage()
        }

        ToolbarButton {
            label: "Settings"
            symbol: "gearshape"
            helpText: "Settings (⌘,)"
            onClicked: toolbar.settingsRequested()
        }
    }
}
