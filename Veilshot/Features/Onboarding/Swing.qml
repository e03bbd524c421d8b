import QtQuick
import Veilshot.DesignSystem

/// Goes to and fro between 0 and 1 for as long as it runs, and stays where it is when it stops.
QtObject {
    id: swing

    required property bool running
    /// One way, in milliseconds.
    required property int duration
    /// Before the first way.
    property int delay: 0
    property real position: 0

    readonly property SequentialAnimation motion: SequentialAnimation {
        running: swing.running

        PauseAnimation {
            duration: swing.delay
        }
        SequentialAnimation {
            loops: Animation.Infinite

            NumberAnimation {
                target: swing
                property: "position"
                to: 1
                duration: swing.duration
                easing: Theme.easeInOut
            }
            NumberAnimation {
                target: swing
                property: "position"
                to: 0
                duration: swing.duration
                easing: Theme.easeInOut
            }
        }
    }
}
