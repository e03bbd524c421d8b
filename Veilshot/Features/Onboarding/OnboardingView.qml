pragma ComponentBehavior: Bound

import QtQuick
import Veilshot.DesignSystem
import Veilshot.Features

/// The walkthrough: a page over the buttons that lead through it. Return is always the button that advances, except
/// on another button.
FocusScope {
    id: view

    required property OnboardingStore onboarding
    required property HistoryStore history
    required property DesktopMotion motion

    /// After the walkthrough was recorded as complete.
    signal finished

    readonly property bool isSeen: Window.visibility !== Window.Hidden && Window.visibility !== Window.Minimized

    implicitWidth: 680
    implicitHeight: 600

    Keys.onReturnPressed: event => advanceOnce(event)
    Keys.onEnterPressed: event => advanceOnce(event)

    /// Return advances again, wherever the keyboard was before.
    function focusPrimary(): void {
        primary.forceActiveFocus();
    }

    function advanceOnce(event: KeyEvent) {
        if (!event.isAutoRepeat)
            flow.advance();
    }

    OnboardingFlow {
        id: flow

        onStepChanged: {
            // What had the keyboard may be gone with its page.
            if (!back.activeFocus || !hasPrevious)
                primary.forceActiveFocus(back.visualFocus ? Qt.TabFocusReason : Qt.OtherFocusReason);
        }
        onFinished: {
            view.onboarding.complete();
            view.finished();
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.base
    }

    OnboardingBackdrop {
        width: parent.width
        height: 340
        glow: flow.step === OnboardingStep.Step.Ready ? Theme.success : Theme.brand

        Behavior on glow {
            ColorAnimation {
                duration: Theme.spring.duration
                easing: Theme.spring.curve
            }
        }
    }

    Repeater {
        model: flow.count

        PageMotion {
            id: place

            required property int index
            readonly property bool isCurrent: index === flow.step
            /// 0 when the page is away, 1 when it is there.
            property real presence: isCurrent ? 1 : 0
            readonly property real absence: view.motion.isReduced ? 0 : 1 - presence
            /// Where it comes from, or where it goes.
            property real awayOffset: 0

            width: view.width
            height: line.y
            enabled: isCurrent
            offset: awayOffset * absence
            blur: 8 * absence
            opacity: presence

            onIsCurrentChanged: awayOffset = isCurrent ? flow.insertionOffset : flow.removalOffset

            Behavior on presence {
                NumberAnimation {
                    duration: view.motion.isReduced ? Theme.fadeDuration : Theme.spring.duration
                    easing: view.motion.isReduced ? Theme.easeInOut : Theme.spring.curve
                }
            }

            // The page is made when it comes and ends when it has gone.
            Repeater {
                model: place.isCurrent || place.presence > 0 ? 1 : 0

                OnboardingPage {
                    width: place.width
                    height: place.height
                    step: place.index
                    onboarding: view.onboarding
                    history: view.history
                    motion: view.motion
                    isSeen: view.isSeen && place.isCurrent
                }
            }
        }
    }

    Hairline {
        id: line

        anchors.bottom: footer.top
        width: parent.width
    }

    Item {
        id: footer

        anchors.bottom: parent.bottom
        x: 28
        width: parent.width - 2 * x
        height: 72

        ProgressDots {
            anchors.verticalCenter: parent.verticalCenter
            count: flow.count
            current: flow.step
        }
        FlatButton {
            id: back

            anchors.right: primary.left
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            kind: FlatButton.Secondary
            text: "Back"
            opacity: flow.hasPrevious ? 1 : 0
            visible: opacity > 0
            onClicked: flow.goBack()

            Behavior on opacity {
                NumberAnimation {
                    duration: Theme.snappy.duration
                    easing: Theme.snappy.curve
                }
            }
        }
        FlatButton {
            id: primary

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            kind: FlatButton.Primary
            text: flow.primaryTitle
            focus: true
            onClicked: flow.advance()

            Behavior on width {
                NumberAnimation {
                    duration: Theme.snappy.duration
                    easing: Theme.snappy.curve
                }
            }
        }
    }
}
