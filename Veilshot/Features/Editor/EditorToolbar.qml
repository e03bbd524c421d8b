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

    // Once the handler has returned, which would otherwise last as long as the panel.
    function exportImage() {
        Qt.callLater(store.exportProtectedImage);
    }

    implicitHeight: 48
    color: Theme.surface

    Shortcut {
        sequences: ["Ctrl+V", "Meta+V"]
        autoRepeat: false
        enabled: toolbar.areShortcutsEnabled
        onActivated: toolbar.store.pasteFromClipboard()
    }

    Shortcut {
        sequences: ["Ctrl+O", "Meta+O"]
        autoRepeat: false
        enabled: toolbar.areShortcutsEnabled
        onActivated: toolbar.importer.present()
    }

    Shortcut {
        sequences: ["Ctrl+Shift+C", "Meta+Shift+C"]
        autoRepeat: false
        enabled: toolbar.areShortcutsEnabled && toolbar.presenter.isReady
        onActivated: toolbar.store.copyProtectedImage()
    }

    Shortcut {
        sequences: ["Ctrl+S", "Meta+S"]
        autoRepeat: false
        enabled: toolbar.areShortcutsEnabled && toolbar.presenter.isReady
        onActivated: toolbar.exportImage()
    }

    Shortcut {
        sequences: ["Ctrl+,", "Meta+,"]
        autoRepeat: false
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
            onClicked: toolbar.exportImage()
        }

        ToolbarButton {
            label: "Settings"
            symbol: "gearshape"
            helpText: "Settings (⌘,)"
            onClicked: toolbar.settingsRequested()
        }
    }
}
