pragma ComponentBehavior: Bound

import QtQuick
import Veilshot.DesignSystem

/// Shows or hides what is below it.
BaseButton {
    id: button

    required property bool isExpanded

    verticalPadding: 3
    cornerRadius: 3
    spacing: 6
    font.pixelSize: Theme.fontLabel

    contentItem: Row {
        spacing: button.spacing

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            width: 9
            height: 9
            name: "chevron.right"
            color: Theme.textSecondary
            rotation: button.isExpanded ? 90 : 0

            Behavior on rotation {
                NumberAnimation {
                    duration: Theme.spring.duration
                    easing: Theme.spring.curve
                }
            }
        }

        Text {
            text: button.text
            font: button.font
            color: Theme.textSecondary
        }
    }
}
