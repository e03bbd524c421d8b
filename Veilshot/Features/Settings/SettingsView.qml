pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Veilshot.DesignSystem
import Veilshot.Features

/// What the user can set, in groups.
FocusScope {
    id: view

    required property HistoryStore history
    required property AppearanceSetting appearance

    implicitWidth: 480
    implicitHeight: groups.implicitHeight + 2 * groups.anchors.margins

    component Group: Rectangle {
        default property alias content: column.data

        Layout.fillWidth: true
        implicitHeight: column.implicitHeight + 2 * column.anchors.margins
        radius: Theme.panelRadius
        color: Theme.surface
        border.color: Theme.hairline

        ColumnLayout {
            id: column

            anchors.fill: parent
            anchors.margins: 14
            spacing: 10
        }
    }

    component Heading: Text {
        Layout.fillWidth: true
        Layout.leftMargin: 2
        font.pixelSize: Theme.fontLabel
        font.weight: Font.Medium
        color: Theme.textSecondary
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    component Label: Text {
        Layout.fillWidth: true
        font.pixelSize: Theme.fontBody
        color: Theme.textPrimary
        elide: Text.ElideRight
    }

    component Caption: Text {
        Layout.fillWidth: true
        font.pixelSize: Theme.fontNote
        color: Theme.textSecondary
        wrapMode: Text.Wrap
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    ColumnLayout {
        id: groups

        anchors.fill: parent
        anchors.margins: 20
        spacing: 8

        Heading {
            text: "Appearance"
        }

        Group {
            RowLayout {
                Layout.fillWidth: true

                Label {
                    text: "Theme"
                }

                SegmentedPicker {
                    title: "Theme"
                    titles: view.appearance.titles
                    currentIndex: view.appearance.index
                    onActivated: index => view.appearance.index = index
                }
            }

            Caption {
                text: "System follows your Mac’s appearance. Changes apply to every app window."
            }
        }

        Heading {
            Layout.topMargin: 8
            text: "History"
        }

        Group {
            Switch {
                Layout.fillWidth: true
                text: "Keep protected copies in history"
                checked: view.history.isEnabled
                onToggled: view.history.isEnabled = checked
            }

            Caption {
                text: SettingsTexts.historyNote(view.history.limit)
            }
        }

        Group {
            RowLayout {
                Layout.fillWidth: true

                Label {
                    text: "Saved images"
                }

                Text {
                    text: view.history.count
                    font.pixelSize: Theme.fontBody
                    color: Theme.textSecondary
                    Accessible.role: Accessible.StaticText
                    Accessible.name: "Saved images: " + text
                }
            }

            FlatButton {
                kind: FlatButton.Secondary
                text: "Clear History…"
                textColor: Theme.danger
                enabled: view.history.count > 0
                onClicked: {
                    confirmation.message = SettingsTexts.clearMessage(view.history.count);
                    confirmation.open();
                }
            }
        }
    }

    ConfirmationDialog {
        id: confirmation
        title: "Clear history?"
        message: ""
        destructiveLabel: "Clear History"
        onConfirmed: view.history.clear()
    }
}
