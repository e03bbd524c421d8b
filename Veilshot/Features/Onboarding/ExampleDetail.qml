import QtQuick
import Veilshot.DesignSystem

/// A detail of the example, which can be hidden under a cover in the colour of its kind. What it shows is its content;
/// that blurs with `concealment`.
Item {
    id: detail

    required property bool isHidden
    /// Only hiding is; the detail is back at once.
    required property bool isAnimated
    required property color tint
    property real cornerRadius: Theme.rowRadius
    /// From 0 to 1.
    property real concealment: 0

    states: State {
        name: "hidden"
        when: detail.isHidden

        PropertyChanges {
            detail.concealment: 1
        }
    }
    transitions: Transition {
        to: "hidden"
        enabled: detail.isAnimated

        NumberAnimation {
            property: "concealment"
            duration: Theme.spring.duration
            easing: Theme.spring.curve
        }
    }

    Rectangle {
        anchors.fill: parent
        radius: detail.cornerRadius
        opacity: detail.concealment
        scale: 0.9 + 0.1 * detail.concealment
        color: Qt.alpha(detail.tint, 0.16)
        border.width: 1
        border.color: Qt.alpha(detail.tint, 0.45)
    }
}
