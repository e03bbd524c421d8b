pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Veilshot.DesignSystem

/// Something is going on, nobody knows for how long. It moves ten times a second, and only while it can be seen, so as
/// not to take time from the work it stands for.
T.BusyIndicator {
    id: indicator

    property color color: Theme.textSecondary
    property int turn: 0
    readonly property bool isSeen: visible && Window.visibility !== Window.Hidden
        && Window.visibility !== Window.Minimized

    implicitWidth: 14
    implicitHeight: 14

    Accessible.role: Accessible.Animation
    Accessible.name: "In progress"

    Timer {
        interval: 100
        repeat: true
        running: indicator.running && indicator.isSeen
        onTriggered: indicator.turn = (indicator.turn + 1) % 8
    }

    contentItem: Item {
        rotation: indicator.turn * 45

        Repeater {
            model: 8

            Item {
                id: spoke

                required property int index

                anchors.fill: parent
                rotation: index * 45
                opacity: 0.15 + 0.85 * index / 7

                Rectangle {
                    anchors.horizontalCenter: parent.horizontalCenter
                    width: parent.width / 8
                    height: parent.height * 0.3
                    radius: width / 2
                    color: indicator.color
                }
            }
        }
    }
}
