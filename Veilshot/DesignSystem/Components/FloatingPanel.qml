import QtQuick
import Veilshot.DesignSystem

/// The background of what floats above the content.
Rectangle {
    id: panel

    color: Theme.elevated
    border.color: Theme.outline

    DropShadow {
        anchors.fill: parent
        z: -1
        cornerRadius: panel.radius
    }
}
