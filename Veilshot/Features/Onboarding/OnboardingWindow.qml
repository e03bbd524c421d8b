pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Window
import Veilshot.DesignSystem
import Veilshot.Features

/// The window of the first run. It has no title bar: it is dragged by its background, and its close button leaves the
/// walkthrough for another time.
Window {
    id: window

    required property OnboardingStore onboarding
    required property HistoryStore history
    required property DesktopMotion motion

    /// The last page was left and the walkthrough recorded as complete; the window is still open.
    signal finished

    objectName: "Veilshot.Onboarding"
    width: view.implicitWidth
    height: view.implicitHeight
    minimumWidth: view.implicitWidth
    maximumWidth: view.implicitWidth
    minimumHeight: view.implicitHeight
    maximumHeight: view.implicitHeight
    flags: Qt.Window | Qt.FramelessWindowHint | Qt.CustomizeWindowHint | Qt.WindowCloseButtonHint
    title: "Welcome to Veilshot"
    color: Theme.windowBackground

    Component.onCompleted: {
        x = Screen.virtualX + (Screen.width - width) / 2;
        y = Screen.virtualY + (Screen.height - height) / 2;
    }
    onVisibleChanged: {
        if (visible)
            view.focusPrimary();
    }

    Shortcut {
        sequences: [StandardKey.Close]
        onActivated: window.close()
    }

    Shortcut {
        sequences: ["Ctrl+Q", "Meta+Q"]
        onActivated: Qt.quit()
    }

    OnboardingView {
        id: view

        anchors.fill: parent
        focus: true
        onboarding: window.onboarding
        history: window.history
        motion: window.motion
        onFinished: window.finished()

        // Only where nothing above takes the press.
        Item {
            anchors.fill: parent
            z: -1

            DragHandler {
                target: null
                onActiveChanged: {
                    if (active)
                        window.startSystemMove();
                }
            }
        }
    }

    ToolbarButton {
        anchors.top: parent.top
        anchors.right: parent.right
        anchors.margins: 8
        focusPolicy: Qt.TabFocus
        label: "Close"
        symbol: "xmark"
        onClicked: window.close()
    }

    // The edge that the window would have had with a title bar.
    Rectangle {
        anchors.fill: parent
        color: "transparent"
        border.color: Theme.outline
    }
}
