import QtQuick
import Veilshot.DesignSystem

/// The colour of a kind of area, given by the kind's raw value ("email"). A symbol, since the software renderer
/// frays small round rectangles where the screen's scale is not whole.
Symbol {
    required property string kind

    implicitWidth: 7
    implicitHeight: 7
    name: "circle.fill"
    color: Theme.tints[kind]

    Accessible.ignored: true
}
