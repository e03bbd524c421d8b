import QtQuick
import Veilshot.DesignSystem

/// The button of panels and dialogs. It is as wide as its text, or as a layout makes it.
BaseButton {
    id: button

    enum Kind { Primary, Secondary }

    required property int kind
    readonly property bool isPrimary: kind === FlatButton.Primary
    property color textColor: isPrimary ? Theme.onBrand : Theme.textPrimary

    property real hoverBrightness: isHovered ? 0.04 : 0
    readonly property real brightness: down ? -0.06 : hoverBrightness

    horizontalPadding: 14
    implicitHeight: Theme.controlHeight
    font.weight: Font.Medium
    // Faded as a whole, not part by part through each other; the software renderer cuts layers at some scales.
    layer.enabled: !enabled && GraphicsInfo.api !== GraphicsInfo.Software

    Behavior on hoverBrightness {
        NumberAnimation {
            duration: Theme.hoverDuration
            easing.type: Easing.OutQuad
        }
    }

    contentItem: Text {
        text: button.text
        font: button.font
        color: Theme.brightened(button.textColor, button.brightness)
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
    background: Rectangle {
        radius: button.cornerRadius
        color: Theme.brightened(button.isPrimary ? Theme.brand : Theme.elevated, button.brightness)

        // On the colour: a rectangle's own border would have what is behind the button shine through.
        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: "transparent"
            border.color: Theme.brightened(button.isPrimary ? Theme.onBrandOutline : Theme.outline,
                button.brightness)
        }
    }
}
