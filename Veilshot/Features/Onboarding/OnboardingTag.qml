import QtQuick
import Veilshot.DesignSystem

/// A word with a symbol, in one colour.
Rectangle {
    id: tag

    required property string systemImage
    required property string text
    required property color tint

    implicitWidth: row.implicitWidth + 2 * 12
    implicitHeight: row.implicitHeight + 2 * 6
    radius: height / 2
    color: Qt.alpha(tint, 0.1)
    border.width: 0.5
    border.color: Qt.alpha(tint, 0.3)

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 6

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            width: 14
            height: 14
            name: tag.systemImage
            color: tag.tint
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: tag.text
            font.pixelSize: Theme.fontLabel
            font.weight: Font.Medium
            color: tag.tint
            Accessible.ignored: true
        }
    }
}
