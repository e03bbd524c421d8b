pragma ComponentBehavior: Bound

import QtQuick
import Veilshot.DesignSystem
import Veilshot.Features

/// A tick that grows, with rings around it.
Item {
    id: hero

    required property DesktopMotion motion

    /// 0 before it appears, 1 at rest.
    property real presence: motion.isReduced ? 1 : 0

    SequentialAnimation {
        running: !hero.motion.isReduced

        PauseAnimation {
            duration: 100
        }
        NumberAnimation {
            target: hero
            property: "presence"
            to: 1
            duration: Theme.entrance.duration
            easing: Theme.entrance.curve
        }
    }

    Repeater {
        model: 2

        Ring {
            required property int index

            anchors.centerIn: parent
            width: 170 + 70 * index
            height: width
            scale: 0.6 + 0.4 * hero.presence
            opacity: hero.presence
            color: Qt.alpha(Theme.success, 0.25 - 0.1 * index)
        }
    }

    Rectangle {
        anchors.centerIn: parent
        width: 112
        height: 112
        radius: width / 2
        scale: 0.7 + 0.3 * hero.presence
        color: Theme.success

        DropShadow {
            anchors.fill: parent
            z: -1
            cornerRadius: parent.radius
            blurRadius: 28
            offset: Qt.point(0, 10)
            color: Qt.alpha(Theme.success, 0.35)
        }
        Symbol {
            anchors.centerIn: parent
            width: 52
            height: 52
            smooth: true
            name: "checkmark"
            color: Theme.onBrand
        }
    }
}
