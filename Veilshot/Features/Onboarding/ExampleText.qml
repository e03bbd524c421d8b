import QtQuick
import Veilshot.DesignSystem

/// A detail of the example that is text.
ExampleDetail {
    id: detail

    required property string text
    property alias font: original.font

    implicitWidth: original.implicitWidth + 2 * 5
    implicitHeight: original.implicitHeight + 2 * 2

    Text {
        id: original

        anchors.centerIn: parent
        opacity: 1 - detail.concealment
        text: detail.text
        font.pixelSize: Theme.fontLabel
        color: Theme.textPrimary
        Accessible.ignored: true
    }

    BlurredText {
        anchors.fill: parent
        opacity: detail.concealment
        text: detail.text
        font: original.font
        color: detail.tint
        blurRadius: 9
    }
}
