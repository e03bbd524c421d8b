import QtQuick
import QtQuick.Layouts
import Veilshot.DesignSystem

/// A title, a message and a row of buttons: what the alert and the confirmation are made of.
Sheet {
    id: dialog

    required title
    required property string message
    default property alias buttons: row.data

    width: Math.min(360, parent ? parent.width - 2 * margins : 360)
    padding: 20

    contentItem: ColumnLayout {
        spacing: 6

        Accessible.role: Accessible.AlertMessage
        Accessible.name: dialog.title
        Accessible.description: dialog.message

        Text {
            Layout.fillWidth: true
            text: dialog.title
            font.pixelSize: Theme.fontTitle
            font.weight: Font.DemiBold
            color: Theme.textPrimary
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
        }
        Text {
            Layout.fillWidth: true
            text: dialog.message
            font.pixelSize: Theme.fontBody
            color: Theme.textSecondary
            wrapMode: Text.Wrap
            textFormat: Text.PlainText
        }
        RowLayout {
            id: row

            Layout.alignment: Qt.AlignRight
            Layout.topMargin: 12
            spacing: 8
        }
    }
}
