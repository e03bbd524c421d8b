pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Veilshot.DesignSystem
import Veilshot.Features

/// The window without an image: an invitation, and what was protected lately.
FocusScope {
    id: view

    required property EditorStore store
    required property HistoryStore history
    required property HistoryActions historyActions
    /// While a picture is dragged over the window.
    required property bool isTargeted
    /// While a sheet or a question lies over the view.
    readonly property bool isCovered: sheet.visible || strip.isConfirmingClear

    property historyEntry selectedEntry

    signal openRequested

    // A picture that was asked for before may arrive under them.
    onEnabledChanged: {
        if (enabled) {
            paste.forceActiveFocus();
        } else {
            sheet.close();
            strip.cancelClear();
        }
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            ColumnLayout {
                anchors.centerIn: parent
                spacing: 0

                Image {
                    Layout.alignment: Qt.AlignHCenter
                    source: "qrc:/qt/qml/Veilshot/DesignSystem/Icons/veilshot.svg"
                    sourceSize: Qt.size(64, 64)
                    Accessible.ignored: true
                }

                Text {
                    Layout.alignment: Qt.AlignHCenter
                    Layout.topMargin: 16
                    text: view.isTargeted ? "Drop to open" : "Paste a screenshot"
                    color: Theme.textPrimary
                    font.pixelSize: 20
                    font.weight: Font.DemiBold
                    font.letterSpacing: -0.2
                    Accessible.role: Accessible.Heading
                    Accessible.name: text
                }

                Text {
                    Layout.alignment: Qt.AlignHCenter
                    Layout.topMargin: 6
                    Layout.maximumWidth: 380
                    text: "Names, emails, phone numbers, card numbers and faces get blurred before you share. Nothing leaves this Mac."
                    color: Theme.textSecondary
                    font.pixelSize: Theme.fontBody
                    lineHeight: 1.2
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.WordWrap
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }

                RowLayout {
                    Layout.alignment: Qt.AlignHCenter
                    Layout.topMargin: 20
                    spacing: 8

                    FlatButton {
                        id: paste
                        focus: true
                        kind: FlatButton.Primary
                        text: "Paste Screenshot"
                        onClicked: view.store.pasteFromClipboard()
                    }

                    FlatButton {
                        kind: FlatButton.Secondary
                        text: "Open Image…"
                        onClicked: view.openRequested()
                    }
                }

                Text {
                    Layout.alignment: Qt.AlignHCenter
                    Layout.topMargin: 14
                    text: "Or drop an image into this window."
                    color: Theme.textTertiary
                    font.pixelSize: Theme.fontLabel
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }
            }
        }

        RecentHistoryView {
            id: strip

            Layout.fillWidth: true
            Layout.preferredHeight: isShown ? implicitHeight : 0

            readonly property bool isShown: view.history.count > 0

            history: view.history
            actions: view.historyActions
            opacity: isShown ? 1 : 0
            visible: opacity > 0
            onSelect: entry => {
                view.selectedEntry = entry;
                sheet.open();
            }

            Behavior on Layout.preferredHeight {
                NumberAnimation {
                    duration: Theme.spring.duration
                    easing: Theme.spring.curve
                }
            }

            Behavior on opacity {
                NumberAnimation {
                    duration: Theme.spring.duration
                    easing: Theme.spring.curve
                }
            }
        }
    }

    HistoryDetailView {
        id: sheet
        history: view.history
        actions: view.historyActions
        entry: view.selectedEntry
        onOpenInEditor: view.store.load(view.history.imageURL(entry))
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: 8
        radius: 10
        visible: view.isTargeted
        color: Qt.alpha(Theme.brand, 0.05)
        border.color: Theme.brand
        border.width: 1.5
    }
}
