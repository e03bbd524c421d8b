import QtQuick
import Veilshot.DesignSystem

/// The background of a panel that is a window of its own. Only the panel's shape is drawn: no desktop lets a program
/// blur what lies behind a window.
Rectangle {
    property real cornerRadius: 0

    radius: cornerRadius
    color: Theme.surface
    border.color: Theme.outline
}
