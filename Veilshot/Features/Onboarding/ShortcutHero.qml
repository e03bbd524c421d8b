pragma ComponentBehavior: Bound

import QtQuick
import Veilshot.DesignSystem

/// The keys of the shortcut, which go down whenever it is pressed.
Item {
    id: hero

    required property int pressCount
    property bool isPressed: false

    onPressCountChanged: {
        isPressed = true;
        release.restart();
    }

    Timer {
        id: release
        interval: 180
        onTriggered: hero.isPressed = false
    }

    component Answer: OnboardingTag {
        required property bool isShown

        anchors.horizontalCenter: parent.horizontalCenter
        opacity: isShown ? 1 : 0
        scale: isShown ? 1 : 0.9
        visible: opacity > 0

        Accessible.role: Accessible.StaticText
        Accessible.name: text
        Accessible.ignored: !isShown

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.spring.duration
                easing: Theme.spring.curve
            }
        }
        Behavior on scale {
            NumberAnimation {
                duration: Theme.spring.duration
                easing: Theme.spring.curve
            }
        }
    }

    Column {
        anchors.centerIn: parent
        spacing: 24

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 12

            Accessible.role: Accessible.Graphic
            Accessible.name: "Command Shift B"

            Keycap {
                symbol: "command"
                caption: "command"
                isPressed: hero.isPressed
            }
            Keycap {
                symbol: "shift"
                caption: "shift"
                isPressed: hero.isPressed
            }
            Keycap {
                letter: "B"
                isPressed: hero.isPressed
            }
        }

        Item {
            width: parent.width
            implicitHeight: invitation.implicitHeight

            Answer {
                id: invitation
                systemImage: "hand.tap"
                text: "Try it now"
                tint: Theme.brandBright
                isShown: hero.pressCount === 0
            }
            Answer {
                systemImage: "checkmark.circle.fill"
                text: "That’s Quick Paste"
                tint: Theme.success
                isShown: hero.pressCount > 0
            }
        }
    }
}
