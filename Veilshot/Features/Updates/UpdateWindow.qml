pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import QtQuick.Window
import Veilshot.DesignSystem
import Veilshot.Features

/// A check for updates and what came of it. It shows itself while there is something to show, and its size is that of
/// its content.
Window {
    id: window

    required property CheckForUpdatesViewModel updates
    readonly property int stage: updates.stage

    width: content.implicitWidth
    height: content.implicitHeight
    minimumWidth: content.implicitWidth
    maximumWidth: content.implicitWidth
    minimumHeight: content.implicitHeight
    maximumHeight: content.implicitHeight
    flags: Qt.Dialog
    title: "Software Update"
    color: Theme.windowBackground
    visible: stage !== CheckForUpdatesViewModel.None

    onClosing: updates.close()
    onStageChanged: {
        // Asked for, and so wanted in front; what was found unasked must not take the keyboard.
        if (stage === CheckForUpdatesViewModel.Checking) {
            raise();
            requestActivate();
        }
        focusAnswer();
    }
    Component.onCompleted: focusAnswer()

    function focusAnswer() {
        (stage === CheckForUpdatesViewModel.UpdateFound ? download : done).forceActiveFocus();
    }

    Shortcut {
        sequences: ["Escape", StandardKey.Close]
        onActivated: window.updates.close()
    }

    Shortcut {
        sequences: ["Ctrl+Q", "Meta+Q"]
        onActivated: Qt.quit()
    }

    FocusScope {
        id: content

        anchors.fill: parent
        focus: true
        implicitWidth: 460
        implicitHeight: column.implicitHeight + 2 * column.anchors.margins

        ColumnLayout {
            id: column

            anchors.fill: parent
            anchors.margins: 20
            spacing: 16

            RowLayout {
                Layout.fillWidth: true
                spacing: 16

                Image {
                    Layout.alignment: Qt.AlignTop
                    source: "qrc:/qt/qml/Veilshot/DesignSystem/Icons/veilshot.svg"
                    sourceSize: Qt.size(48, 48)
                    Accessible.ignored: true
                }

                ColumnLayout {
                    Layout.fillWidth: true
                    Layout.alignment: Qt.AlignVCenter
                    spacing: 4

                    RowLayout {
                        Layout.fillWidth: true
                        spacing: 8

                        Text {
                            Layout.fillWidth: true
                            text: window.updates.title
                            font.pixelSize: Theme.fontTitle
                            font.weight: Font.DemiBold
                            color: Theme.textPrimary
                            textFormat: Text.PlainText
                            wrapMode: Text.Wrap
                            Accessible.role: Accessible.Heading
                            Accessible.name: text
                        }

                        // Always in its place: a layout overlooks what comes into it while the window is hidden.
                        Item {
                            implicitWidth: progress.implicitWidth
                            implicitHeight: progress.implicitHeight

                            ProgressIndicator {
                                id: progress
                                visible: window.stage === CheckForUpdatesViewModel.Checking
                            }
                        }
                    }

                    Text {
                        Layout.fillWidth: true
                        visible: text !== ""
                        text: window.updates.message
                        font.pixelSize: Theme.fontBody
                        color: Theme.textSecondary
                        textFormat: Text.PlainText
                        wrapMode: Text.Wrap
                        Accessible.role: Accessible.StaticText
                        Accessible.name: text
                    }
                }
            }

            ColumnLayout {
                Layout.fillWidth: true
                spacing: 6
                visible: window.updates.notes !== ""

                Text {
                    text: "What’s new"
                    font.pixelSize: Theme.fontLabel
                    font.weight: Font.Medium
                    color: Theme.textSecondary
                    Accessible.role: Accessible.Heading
                    Accessible.name: text
                }

                Rectangle {
                    Layout.fillWidth: true
                    implicitHeight: Math.min(notes.implicitHeight, 220)
                    radius: Theme.panelRadius
                    color: Theme.surface
                    border.color: Theme.hairline

                    FocusRing {
                        visible: scroller.activeFocus
                        cornerRadius: parent.radius
                    }

                    Flickable {
                        id: scroller

                        readonly property real lastY: Math.max(0, contentHeight - height)

                        anchors.fill: parent
                        anchors.margins: 1
                        contentWidth: width
                        contentHeight: notes.implicitHeight - 2 * anchors.margins
                        boundsBehavior: Flickable.StopAtBounds
                        clip: true
                        activeFocusOnTab: lastY > 0
                        Accessible.role: Accessible.Pane
                        Accessible.name: "What’s new"
                        T.ScrollBar.vertical: ScrollBar {}

                        Keys.onUpPressed: scrollBy(-40)
                        Keys.onDownPressed: scrollBy(40)
                        Keys.onPressed: event => {
                            const page = height - 40;
                            const steps = {
                                [Qt.Key_PageUp]: -page,
                                [Qt.Key_PageDown]: page,
                                [Qt.Key_Home]: -contentHeight,
                                [Qt.Key_End]: contentHeight
                            };
                            if (event.key in steps) {
                                scrollBy(steps[event.key]);
                                event.accepted = true;
                            }
                        }

                        function scrollBy(distance: real) {
                            contentY = Math.max(0, Math.min(lastY, contentY + distance));
                        }

                        Text {
                            id: notes

                            width: scroller.width
                            padding: 12
                            text: window.updates.notes
                            font.pixelSize: Theme.fontBody
                            color: Theme.textPrimary
                            lineHeight: 1.2
                            textFormat: Text.PlainText
                            wrapMode: Text.Wrap
                            onTextChanged: scroller.contentY = 0
                            Accessible.role: Accessible.StaticText
                            Accessible.name: text
                        }
                    }
                }
            }

            RowLayout {
                Layout.alignment: Qt.AlignRight
                spacing: 8

                FlatButton {
                    id: done

                    kind: window.stage === CheckForUpdatesViewModel.UpdateFound
                        || window.stage === CheckForUpdatesViewModel.Checking ? FlatButton.Secondary : FlatButton.Primary
                    text: {
                        switch (window.stage) {
                        case CheckForUpdatesViewModel.Checking:
                            return "Cancel";
                        case CheckForUpdatesViewModel.UpdateFound:
                            return "Later";
                        default:
                            return "OK";
                        }
                    }
                    onClicked: window.updates.close()
                }

                FlatButton {
                    id: download

                    visible: window.stage === CheckForUpdatesViewModel.UpdateFound
                    kind: FlatButton.Primary
                    text: "Open Download Page"
                    onClicked: window.updates.openDownloadPage()
                }
            }
        }
    }
}
