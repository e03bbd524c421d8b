import QtQuick
import Veilshot.DesignSystem

/// The colour of a kind of area, given by the kind's raw value ("email").
Rectangle {
    required property string kind

    implicitWidth: 7
    implicitHeight: 7
    radius: 3.5
    color: Theme.tints[kind]

    Accessible.ignored: true
}
