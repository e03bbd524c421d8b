pragma ComponentBehavior: Bound

import QtQuick
import Veilshot.DesignSystem
import Veilshot.Features

/// The application's icon in rings that breathe.
Item {
    id: hero

    required property DesktopMotion motion
    /// Whether anyone sees it: what moves without end stops meanwhile.
    required property bool isSeen

    Repeater {
        model: 3

        Ring {
            id: ring

            required property int index

            anchors.centerIn: parent
            width: 160 + 64 * index
            height: width
            scale: 0.97 + 0.07 * breath.position
            color: Qt.alpha(Theme.brand, 0.22 - 0.06 * index)

            Swing {
                id: breath
                running: hero.isSeen && !hero.motion.isReduced
                duration: 2600
                delay: 300 * ring.index
            }
        }
    }

    DropShadow {
        anchors.fill: icon
        // The icon's ground in its picture.
        anchors.margins: icon.width * 16 / 512
        cornerRadius: icon.width * 112 / 512
        blurRadius: 28
        offset: Qt.point(0, 10)
        color: Qt.alpha(Theme.brand, 0.35)
    }
    Image {
        id: icon

        anchors.centerIn: parent
        width: 112
        height: 112
        source: "qrc:/qt/qml/Veilshot/DesignSystem/Icons/veilshot.svg"
        sourceSize: Qt.size(112, 112)
        Accessible.ignored: true
    }
}
