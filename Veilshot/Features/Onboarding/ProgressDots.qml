pragma ComponentBehavior: Bound

import QtQuick
import Veilshot.DesignSystem

/// Which of so many pages is shown.
Row {
    id: dots

    required property int count
    required property int current

    spacing: 6

    Accessible.role: Accessible.StaticText
    Accessible.name: "Step " + (current + 1) + " of " + count

    Repeater {
        model: dots.count

        Rectangle {
            required property int index

            width: index === dots.current ? 22 : 6
            height: 6
            radius: 3
            color: index === dots.current ? Theme.brand
                 : index < dots.current ? Qt.alpha(Theme.brand, 0.35)
                 : Theme.outline

            Behavior on width {
                NumberAnimation {
                    duration: Theme.spring.duration
                    easing: Theme.spring.curve
                }
            }
            Behavior on color {
                ColorAnimation {
                    duration: Theme.spring.duration
                    easing: Theme.spring.curve
                }
            }
        }
    }
}
