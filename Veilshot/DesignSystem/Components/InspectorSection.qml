import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Veilshot.DesignSystem

/// A part of a side panel: a title over its content, which is laid out as a column, and a line at the end.
T.GroupBox {
    id: section

    required title
    default property alias content: column.data

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    horizontalPadding: Theme.panelPadding
    verticalPadding: 14

    Accessible.name: title

    contentItem: ColumnLayout {
        id: column

        spacing: 10

        Text {
            Layout.fillWidth: true
            text: section.title
            font.pixelSize: Theme.fontLabel
            font.weight: Font.Medium
            color: Theme.textSecondary
            elide: Text.ElideRight
        }
    }
    background: Item {
        Hairline {
            anchors.bottom: parent.bottom
            width: parent.width
        }
    }
}
