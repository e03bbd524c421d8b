pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Veilshot.DesignSystem

/// A window's menus, each a `ContextMenu` whose title may mark its mnemonic with "&". F10 opens the first.
T.MenuBar {
    id: bar

    readonly property FocusMemory focusMemory: FocusMemory {}

    implicitWidth: contentWidth + leftPadding + rightPadding
    implicitHeight: 28
    contentWidth: row.implicitWidth
    leftPadding: 6
    rightPadding: 6

    /// Whether one of the menus is.
    function isOpen(): bool {
        for (let index = 0; index < count; ++index) {
            if (menuAt(index).visible)
                return true;
        }
        return false;
    }

    Shortcut {
        sequence: "F10"
        enabled: bar.enabled
        onActivated: (bar.itemAt(0) as T.MenuBarItem).triggered()
    }

    contentItem: Row {
        id: row

        spacing: 2

        Repeater {
            model: bar.contentModel
        }
    }
    delegate: T.MenuBarItem {
        id: item

        readonly property string title: text.replace("&", "")

        implicitWidth: label.implicitWidth + leftPadding + rightPadding
        implicitHeight: bar.implicitHeight
        horizontalPadding: 9
        hoverEnabled: true
        activeFocusOnTab: false

        Accessible.name: title

        contentItem: Text {
            id: label

            text: item.title
            font.pixelSize: Theme.fontLabel
            color: Theme.textPrimary
            verticalAlignment: Text.AlignVCenter
        }
        background: Item {
            Rectangle {
                anchors.fill: parent
                anchors.topMargin: 3
                anchors.bottomMargin: 3
                radius: Theme.rowRadius
                color: Theme.hairline
                visible: item.highlighted || item.hovered || item.activeFocus
            }
        }
    }
    background: Rectangle {
        color: Theme.surface
    }
}
