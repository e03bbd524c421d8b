import QtQuick
import Veilshot.DesignSystem

/// A key with a symbol, or else a letter, on it.
Item {
    id: key

    property string symbol
    property string letter
    property string caption
    required property bool isPressed

    /// From 0, released, to 1, pressed.
    property real depth: 0
    /// The same, without the overshoot.
    readonly property real shade: Math.max(0, Math.min(depth, 1))

    implicitWidth: 78
    implicitHeight: 78

    states: State {
        name: "pressed"
        when: key.isPressed

        PropertyChanges {
            key.depth: 1
        }
    }
    transitions: [
        Transition {
            to: "pressed"

            NumberAnimation {
                property: "depth"
                duration: Theme.pressing.duration
                easing: Theme.pressing.curve
            }
        },
        Transition {
            from: "pressed"

            NumberAnimation {
                property: "depth"
                duration: Theme.snappy.duration
                easing: Theme.snappy.curve
            }
        }
    ]

    Rectangle {
        width: parent.width
        height: parent.height
        y: 3 * key.depth
        radius: 14
        color: Qt.alpha(Theme.elevated, 1 - key.shade)

        DropShadow {
            anchors.fill: parent
            z: -1
            cornerRadius: parent.radius
            blurRadius: 10
            color: Theme.imageShadow
            opacity: 1 - key.shade
        }
        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: Qt.alpha(Theme.brand, 0.12 * key.shade)
            border.width: 0.5
            border.color: Theme.outline
        }
        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            y: key.caption ? 16 : (parent.height - height) / 2
            width: 28
            height: 28
            visible: key.symbol
            name: key.symbol
            color: Theme.textPrimary
        }
        Text {
            anchors.centerIn: parent
            visible: !key.symbol
            text: key.letter
            font.pixelSize: 28
            font.weight: Font.Medium
            color: Theme.textPrimary
            Accessible.ignored: true
        }
        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 11
            text: key.caption
            font.pixelSize: 9
            color: Theme.textTertiary
            Accessible.ignored: true
        }
    }
}
