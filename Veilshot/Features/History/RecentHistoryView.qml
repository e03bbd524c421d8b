pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Veilshot.DesignSystem
import Veilshot.Features

/// The kept copies side by side, newest first, as wide as its parent makes it. The list is one stop of the Tab
/// key; arrow keys move in it.
FocusScope {
    id: root

    required property HistoryStore history
    required property HistoryActions actions
    readonly property alias isConfirmingClear: confirmation.visible

    function cancelClear() {
        confirmation.close();
    }

    /// The user picked a copy to see it large.
    signal select(entry: historyEntry)

    implicitHeight: column.implicitHeight

    HistoryListModel {
        id: entries

        history: root.history
    }

    // Nothing else tells that "1 minute ago" has become two.
    Timer {
        interval: 60000
        repeat: true
        triggeredOnStart: true
        running: root.visible && root.Window.visibility > Window.Minimized
        onTriggered: entries.refreshDates()
    }

    ColumnLayout {
        id: column

        width: root.width
        spacing: 0

        RowLayout {
            Layout.fillWidth: true
            Layout.leftMargin: 20
            Layout.rightMargin: 20
            Layout.topMargin: 14
            Layout.bottomMargin: 10
            spacing: 6

            Text {
                text: "Recent"
                font.pixelSize: Theme.fontLabel
                font.weight: Font.Medium
                color: Theme.textSecondary
            }
            Text {
                text: root.history.count
                font.pixelSize: Theme.fontLabel
                font.weight: Font.Medium
                color: Theme.textTertiary
            }
            Item {
                Layout.fillWidth: true
            }
            PlainButton {
                text: "Clear"
                font.pixelSize: Theme.fontLabel
                font.weight: Font.Medium
                color: Theme.textSecondary
                onClicked: {
                    confirmation.message = entries.clearMessage;
                    confirmation.open();
                }
            }
        }

        ListView {
            id: list

            Layout.fillWidth: true
            Layout.preferredHeight: contentItem.childrenRect.height
            Layout.bottomMargin: 20
            orientation: ListView.Horizontal
            spacing: 12
            leftMargin: 20
            rightMargin: 20
            activeFocusOnTab: true
            boundsBehavior: Flickable.StopAtBounds
            // The view's own way to the current card forgets the margins.
            highlightFollowsCurrentItem: false
            onCurrentItemChanged: revealCurrentCard()
            onActiveFocusChanged: revealCurrentCard()
            onMovementStarted: scrolling.stop()
            model: entries

            Accessible.role: Accessible.List
            Accessible.name: "Recent"

            function revealCurrentCard() {
                if (!activeFocus || !currentItem)
                    return;
                const last = currentItem.x - leftMargin;
                const first = currentItem.x + currentItem.width + rightMargin - width;
                scrolling.to = Math.max(first, Math.min(last, contentX));
                scrolling.restart();
            }

            NumberAnimation {
                id: scrolling

                target: list
                property: "contentX"
                duration: Theme.spring.duration
                easing: Theme.spring.curve
            }

            Keys.onPressed: event => {
                if (event.key === Qt.Key_Home)
                    currentIndex = 0;
                else if (event.key === Qt.Key_End)
                    currentIndex = count - 1;
                else
                    return;
                event.accepted = true;
            }

            delegate: HistoryCard {
                history: root.history
                actions: root.actions
                onClicked: root.select(entry)
            }

            add: Transition {
                NumberAnimation {
                    property: "opacity"
                    from: 0
                    to: 1
                    duration: Theme.spring.duration
                    easing: Theme.spring.curve
                }
            }
            remove: Transition {
                NumberAnimation {
                    property: "opacity"
                    to: 0
                    duration: Theme.spring.duration
                    easing: Theme.spring.curve
                }
            }
            displaced: Transition {
                NumberAnimation {
                    property: "x"
                    duration: Theme.spring.duration
                    easing: Theme.spring.curve
                }
                // A card may be on its way in still.
                NumberAnimation {
                    property: "opacity"
                    to: 1
                    duration: Theme.spring.duration
                    easing: Theme.spring.curve
                }
            }

            // A mouse has only a vertical wheel.
            WheelHandler {
                orientation: Qt.Vertical
                acceptedDevices: PointerDevice.Mouse
                onWheel: event => list.flick(event.angleDelta.y * 8, 0)
            }
        }
    }

    ConfirmationDialog {
        id: confirmation

        title: "Clear history?"
        message: ""
        destructiveLabel: "Clear History"
        onConfirmed: root.history.clear()
    }
}
