import QtQuick
import Veilshot.DesignSystem

/// Around the control that the keyboard acts on; its parent shows it only then.
Rectangle {
    /// Of the control.
    property real cornerRadius: Theme.controlRadius

    anchors.fill: parent
    anchors.margins: -3
    color: "transparent"
    border.width: 2
    border.color: Theme.brandBright
    radius: cornerRadius + 3
}
