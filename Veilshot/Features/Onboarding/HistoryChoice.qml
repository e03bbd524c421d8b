import QtQuick
import QtQuick.Layouts
import Veilshot.DesignSystem
import Veilshot.Features

/// Whether protected copies are kept: the same setting as in the settings window.
Rectangle {
    id: choice

    required property HistoryStore history

    implicitWidth: 460
    implicitHeight: row.implicitHeight + 2 * row.anchors.margins
    radius: Theme.panelRadius
    color: Theme.surface
    border.color: Theme.hairline

    RowLayout {
        id: row

        anchors.fill: parent
        anchors.margins: 12
        spacing: 12

        Symbol {
            Layout.alignment: Qt.AlignTop
            Layout.topMargin: 2
            implicitWidth: 18
            implicitHeight: 18
            name: "clock.arrow.circlepath"
            color: Theme.textSecondary
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 4

            Switch {
                Layout.fillWidth: true
                text: "Keep protected copies in history"
                checked: choice.history.isEnabled
                onToggled: choice.history.isEnabled = checked
            }

            Text {
                Layout.fillWidth: true
                // Not under the switch.
                Layout.rightMargin: 50
                text: "Saves the last " + choice.history.limit + " images you copy or export, protected versions only. Change it anytime in Settings."
                font.pixelSize: Theme.fontNote
                color: Theme.textSecondary
                wrapMode: Text.Wrap
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
    }
}
