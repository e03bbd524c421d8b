pragma ComponentBehavior: Bound

import QtQuick
import Veilshot.DesignSystem
import Veilshot.Features

/// A lock, and floating around it what that means.
Item {
    id: hero

    required property DesktopMotion motion
    /// Whether anyone sees it: what moves without end stops meanwhile.
    required property bool isSeen

    component FloatingTag: OnboardingTag {
        id: tag

        /// From the middle of the illustration to that of the tag.
        required property real horizontalOffset
        required property real restingOffset
        required property int delay
        readonly property real floatingOffset: restingOffset - 8

        anchors.centerIn: parent
        anchors.horizontalCenterOffset: horizontalOffset
        anchors.verticalCenterOffset: restingOffset + (floatingOffset - restingOffset) * swing.position
        tint: Theme.brandBright

        Swing {
            id: swing
            running: hero.isSeen && !hero.motion.isReduced
            duration: 3000
            delay: tag.delay
        }
    }

    Rectangle {
        anchors.centerIn: parent
        width: 116
        height: 116
        radius: 30
        color: Theme.elevated
        border.color: Theme.outline

        DropShadow {
            anchors.fill: parent
            z: -1
            cornerRadius: parent.radius
            blurRadius: 28
            offset: Qt.point(0, 10)
            color: Theme.imageShadow
        }
        Symbol {
            anchors.centerIn: parent
            width: 46
            height: 46
            name: "lock.fill"
            color: Theme.brand
        }
    }

    FloatingTag {
        systemImage: "cpu"
        text: "On this Mac"
        horizontalOffset: -168
        restingOffset: -42
        delay: 0
    }
    FloatingTag {
        systemImage: "icloud.slash"
        text: "Never uploaded"
        horizontalOffset: 172
        restingOffset: -8
        delay: 500
    }
    FloatingTag {
        systemImage: "eye.slash"
        text: "No analytics"
        horizontalOffset: -128
        restingOffset: 78
        delay: 1000
    }
}
