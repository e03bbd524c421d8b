import QtQuick
import Veilshot.DesignSystem
import Veilshot.Features

/// Light and a fine texture behind the illustration, which melt into the window's background.
Rectangle {
    id: backdrop

    required property color glow

    color: Theme.base

    RadialGlow {
        anchors.fill: parent
        color: Qt.alpha(Theme.textPrimary, 0.08)
        centre: Qt.point(width / 2 + 210, height / 2 - 190)
        innerRadius: 60
        outerRadius: 340
    }
    RadialGlow {
        anchors.fill: parent
        color: Qt.alpha(backdrop.glow, 0.2)
        centre: Qt.point(width / 2, 155)
        outerRadius: 280
    }
    DotGrid {
        anchors.fill: parent
        spacing: 16
        color: Qt.alpha(Theme.textPrimary, 0.07)
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 90
        gradient: Gradient {
            GradientStop {
                position: 0
                color: Qt.alpha(Theme.base, 0)
            }
            GradientStop {
                position: 1
                color: Theme.base
            }
        }
    }
}
