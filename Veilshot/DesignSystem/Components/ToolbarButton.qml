import QtQuick
import QtQuick.Templates as T
import Veilshot.DesignSystem

/// A symbol to press. Its label is what it is called, also aloud; the tooltip says `helpText`, or else the label.
/// `display: AbstractButton.TextBesideIcon` shows the label too.
BaseButton {
    id: button

    required property string label
    required property string symbol
    property string helpText

    text: label
    spacing: 6
    horizontalPadding: 8
    implicitHeight: Theme.controlHeight
    display: T.AbstractButton.IconOnly

    Accessible.description: helpText

    contentItem: Item {
        implicitWidth: row.implicitWidth
        implicitHeight: row.implicitHeight

        Row {
            id: row

            anchors.centerIn: parent
            spacing: button.spacing

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                width: 18
                height: 18
                name: button.symbol
                color: Theme.textPrimary
            }
            Text {
                anchors.verticalCenter: parent.verticalCenter
                visible: button.display !== T.AbstractButton.IconOnly
                text: button.label
                font: button.font
                color: Theme.textPrimary
            }
        }
    }
    background: Rectangle {
        radius: button.cornerRadius
        color: button.down ? Theme.outline : Theme.hairline
        opacity: button.isHovered || button.down ? 1 : 0

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.hoverDuration
                easing.type: Easing.OutQuad
            }
        }
    }

    // A disabled item hears nothing of the pointer, but its help is wanted all the more.
    HoverHandler {
        id: neighbourhood

        readonly property bool isOverButton: hovered && button.contains(button.mapFromItem(parent, point.position))

        parent: button.parent
    }

    ToolTip {
        visible: neighbourhood.isOverButton || button.visualFocus
        text: button.helpText || button.label
    }
}
