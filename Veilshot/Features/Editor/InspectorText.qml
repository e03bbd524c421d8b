import QtQuick
import Veilshot.DesignSystem

/// A text of the inspector.
Text {
    color: Theme.textPrimary
    font.pixelSize: Theme.fontBody
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
