import QtQuick
import QtQuick.Templates as T
import Veilshot.DesignSystem

T.MenuItem {
    id: item

    required text
    property bool isDestructive: false

    implicitWidth: Math.max(160, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: 26
    horizontalPadding: 9
    opacity: enabled ? 1 : Theme.disabledOpacity
    font.pixelSize: Theme.fontBody

    Accessible.name: text
    Accessible.onPressAction: triggered()

    contentItem: Text {
        text: item.text
        font: item.font
        color: item.highlighted ? Theme.onBrand : item.isDestructive ? Theme.danger : Theme.textPrimary
        verticalAlignment: Text.AlignVCenter
    }
    background: Rectangle {
        radius: Theme.rowRadius
        color: Theme.brand
        visible: item.highlighted
    }
}
