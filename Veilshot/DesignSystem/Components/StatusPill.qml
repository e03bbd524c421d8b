import QtQuick
import QtQuick.Templates as T
import Veilshot.DesignSystem

/// A short message floating above the content: `text`, after the content (a symbol, a progress indicator).
T.Control {
    id: pill

    property string text
    default property alias content: row.data

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    horizontalPadding: 12
    verticalPadding: 7
    spacing: 8
    font.pixelSize: Theme.fontLabel
    font.weight: Font.Medium

    Accessible.role: Accessible.StaticText
    Accessible.name: text

    contentItem: Row {
        spacing: pill.spacing

        Row {
            id: row

            anchors.verticalCenter: parent.verticalCenter
            spacing: pill.spacing
            visible: children.length > 0
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            visible: text !== ""
            text: pill.text
            font: pill.font
            color: Theme.textPrimary
        }
    }
    background: FloatingPanel {
        radius: height / 2
    }
}
