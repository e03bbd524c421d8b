import QtQuick
import Veilshot.DesignSystem

/// A text of the inspector.
Text {
    color: Theme.textPrimary
    font.pixelSize: 13
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
