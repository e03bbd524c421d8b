pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Veilshot.DesignSystem
import Veilshot.Features

/// One kept copy, large. `close` dismisses it.
Sheet {
    id: sheet

    required property HistoryStore history
    required property HistoryActions actions
    required property historyEntry entry

    title: detail.dateText

    /// The user wants to edit the copy.
    signal openInEditor()

    width: 720
    height: Math.min(implicitHeight, parent.height - 2 * Theme.panelPadding)
    // Not over the border.
    padding: 1

    HistoryDetail {
        id: detail

        history: sheet.history
        actions: sheet.actions
        entry: sheet.entry
    }

    Shortcut {
        sequences: [StandardKey.Copy, "Meta+C"]
        enabled: sheet.visible
        onActivated: sheet.actions.copy(sheet.entry)
    }

    contentItem: ColumnLayout {
        spacing: 0

        RowLayout {
            Layout.fillWidth: true
            Layout.margins: 16
            spacing: 16

            Column {
                Layout.fillWidth: true
                spacing: 2

                Text {
                    width: parent.width
                    text: detail.dateText
                    font.pixelSize: Theme.fontBody
                    font.weight: Font.DemiBold
                    color: Theme.textPrimary
                    elide: Text.ElideRight
                }
                Text {
                    width: parent.width
                    text: detail.summary
                    font.pixelSize: Theme.fontLabel
                    color: Theme.textSecondary
                    elide: Text.ElideRight
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }
            }
            FlatButton {
                kind: FlatButton.Secondary
                text: "Done"
                onClicked: sheet.close()
            }
        }
        Hairline {
            Layout.fillWidth: true
        }
        Rectangle {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.minimumHeight: 360
            Layout.preferredHeight: detail.imageHeight(width - 40) + 40
            color: Theme.canvas

            HistoryImage {
                anchors.fill: parent
                anchors.margins: 20
                url: detail.imageURL
            }
        }
        Hairline {
            Layout.fillWidth: true
        }
        RowLayout {
            Layout.fillWidth: true
            Layout.margins: 16
            spacing: 8

            FlatButton {
                kind: FlatButton.Secondary
                text: "Delete"
                onClicked: {
                    sheet.history.deleteEntry(sheet.entry);
                    sheet.close();
                }
            }
            FlatButton {
                kind: FlatButton.Secondary
                text: "Show in Finder"
                onClicked: sheet.actions.showInFileManager(sheet.entry)
            }
            Item {
                Layout.fillWidth: true
            }
            FlatButton {
                kind: FlatButton.Secondary
                text: "Open in Editor"
                onClicked: {
                    sheet.openInEditor();
                    sheet.close();
                }
            }
            FlatButton {
                kind: FlatButton.Primary
                text: detail.didCopy ? "Copied" : "Copy"
                onClicked: sheet.actions.copy(sheet.entry)
            }
        }
    }
}
