import QtQuick
import Veilshot.DesignSystem

/// A separator: one unit high, as wide as it is told.
Rectangle {
    implicitHeight: 1
    color: Theme.hairline
}
