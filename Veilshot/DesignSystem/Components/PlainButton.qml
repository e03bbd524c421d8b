import QtQuick
import Veilshot.DesignSystem

/// A button of text alone, which lines up with other text at its sides. Set `font.pixelSize` for another size.
BaseButton {
    id: button

    property color color: Theme.textPrimary

    verticalPadding: 3
    cornerRadius: 3

    contentItem: Text {
        text: button.text
        font.family: button.font.family
        font.pixelSize: button.font.pixelSize
        font.weight: button.font.weight
        font.underline: button.isHovered
        opacity: button.down ? 0.6 : 1
        color: button.color
        elide: Text.ElideRight
    }
}
