pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Veilshot.DesignSystem
import Veilshot.Features

/// An example screenshot, whose details are hidden one after another, again and again.
Item {
    id: hero

    required property DesktopMotion motion
    /// Whether anyone sees it: what moves without end stops meanwhile.
    required property bool isSeen

    readonly property int detailCount: 5
    property int hiddenCount: 0
    readonly property bool isPlaying: isSeen && !motion.isReduced

    Accessible.role: Accessible.Graphic
    Accessible.name: "Example screenshot with a name, email, phone number, card number and photo blurred"

    Component.onCompleted: begin()
    onIsPlayingChanged: {
        if (isPlaying || motion.isReduced)
            begin();
    }

    function begin() {
        hiddenCount = motion.isReduced ? detailCount : 0;
    }

    Timer {
        interval: hero.hiddenCount === 0 ? 800 : hero.hiddenCount < hero.detailCount ? 380 : 2600
        repeat: true
        running: hero.isPlaying
        onTriggered: hero.hiddenCount = (hero.hiddenCount + 1) % (hero.detailCount + 1)
    }

    component Value: ExampleText {
        required property int number

        isHidden: hero.hiddenCount >= number
        isAnimated: hero.isPlaying
    }

    component Line: RowLayout {
        property alias label: caption.text
        property alias number: value.number
        property alias text: value.text
        property alias tint: value.tint

        width: parent.width

        Text {
            id: caption

            Layout.fillWidth: true
            font.pixelSize: Theme.fontLabel
            color: Theme.textTertiary
            Accessible.ignored: true
        }
        Value {
            id: value
            number: 0
            text: ""
            tint: Theme.brand
        }
    }

    Column {
        anchors.centerIn: parent
        spacing: 16

        Rectangle {
            width: 320
            height: details.implicitHeight + 2 * details.anchors.margins
            radius: 14
            color: Theme.surface
            border.color: Theme.hairline

            DropShadow {
                anchors.fill: parent
                z: -1
                cornerRadius: parent.radius
                blurRadius: 24
                offset: Qt.point(0, 8)
                color: Theme.imageShadow
            }

            Column {
                id: details

                anchors.fill: parent
                anchors.margins: 16
                spacing: 8

                Row {
                    spacing: 9

                    ExampleDetail {
                        id: photo

                        anchors.verticalCenter: parent.verticalCenter
                        width: 44
                        height: 44
                        isHidden: hero.hiddenCount >= 5
                        isAnimated: hero.isPlaying
                        tint: Theme.tints.person
                        cornerRadius: 22

                        Rectangle {
                            anchors.fill: parent
                            z: -1
                            radius: width / 2
                            color: Theme.well
                            border.color: Theme.hairline
                        }
                        Symbol {
                            anchors.centerIn: parent
                            width: 26
                            height: 26
                            opacity: 1 - photo.concealment
                            name: "person.fill"
                            color: Theme.textSecondary
                        }
                        DropShadow {
                            x: 15
                            y: 10
                            width: 14
                            height: 14
                            opacity: photo.concealment
                            cornerRadius: 7
                            offset: Qt.point(0, 0)
                            color: Qt.alpha(photo.tint, 0.75)
                        }
                        DropShadow {
                            x: 9
                            y: 26
                            width: 26
                            height: 10
                            opacity: photo.concealment
                            cornerRadius: 5
                            offset: Qt.point(0, 0)
                            color: Qt.alpha(photo.tint, 0.75)
                        }
                    }

                    Column {
                        anchors.verticalCenter: parent.verticalCenter
                        spacing: 4

                        Value {
                            number: 1
                            text: "Mia Example"
                            tint: Theme.tints.name
                            font.pixelSize: 14
                            font.weight: Font.DemiBold
                        }
                        Value {
                            number: 2
                            text: "mia@example.com"
                            tint: Theme.tints.email
                        }
                    }
                }

                Hairline {
                    width: parent.width
                }
                Line {
                    label: "Phone"
                    number: 3
                    text: "+45 20 12 34 56"
                    tint: Theme.tints.phone
                }
                Line {
                    label: "Card"
                    number: 4
                    text: "4242 4242 4242 4242"
                    tint: Theme.tints.payment
                }
            }
        }

        OnboardingTag {
            id: result

            anchors.horizontalCenter: parent.horizontalCenter
            systemImage: "checkmark.circle.fill"
            text: "5 details hidden"
            tint: Theme.success
            opacity: 0
            scale: 0.9

            states: State {
                name: "shown"
                when: hero.hiddenCount === hero.detailCount

                PropertyChanges {
                    result.opacity: 1
                    result.scale: 1
                }
            }
            transitions: Transition {
                to: "shown"
                enabled: hero.isPlaying

                NumberAnimation {
                    properties: "opacity,scale"
                    duration: Theme.spring.duration
                    easing: Theme.spring.curve
                }
            }
        }
    }
}
