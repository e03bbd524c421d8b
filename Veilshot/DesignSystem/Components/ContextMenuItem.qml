import QtQuick
import QtQuick.Templates as T
import Veilshot.DesignSystem

T.MenuItem {
    id: item

    required text
    property bool isDestructive: false
    /// The keys that do the same, as they are shown at the end of the line.
    property string shortcutText: ""

    implicitWidth: Math.max(160, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: 26
    horizontalPadding: 9
    opacity: enabled ? 1 : Theme.disabledOpacity
    font.pixelSize: Theme.fontBody

    Accessible.name: text
    Accessible.onPressAction: triggered()

    contentItem: Item {
        implicitWidth: label.implicitWidth + (item.shortcutText ? 32 + shortcutLabel.implicitWidth : 0)

        Text {
            id: label

            height: parent.height
            text: item.text
            font: item.font
            color: item.highlighted ? Theme.onBrand : item.isDestructive ? Theme.danger : Theme.textPrimary
            verticalAlignment: Text.AlignVCenter
        }
        Text {
            id: shortcutLabel

            anchors.right: parent.right
            height: parent.height
            text: item.shortcutText
            font: item.font
            color: item.highlighted ? Theme.onBrand : Theme.textSecondary
            verticalAlignment: Text.AlignVCenter
        }
    }
    background: Rectangle {
        radius: Theme.rowRadius
        color: Theme.brand
        visible: item.highlighted
    }
}
