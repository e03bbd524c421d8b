import QtQuick
import Veilshot.DesignSystem

/// A short message floating above the content: `text`, after the content (a symbol, a progress indicator).
FloatingPanel {
    id: pill

    property string text
    default property alias content: extras.data

    implicitWidth: row.implicitWidth + 2 * 12
    implicitHeight: row.implicitHeight + 2 * 7
    radius: height / 2

    Accessible.role: Accessible.StaticText
    Accessible.name: text

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 8

        Row {
            id: extras

            anchors.verticalCenter: parent.verticalCenter
            spacing: row.spacing
            visible: children.length > 0
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: pill.text
            font.pixelSize: Theme.fontLabel
            font.weight: Font.Medium
            color: Theme.textPrimary
        }
    }
}
