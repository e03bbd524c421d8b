pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Veilshot.DesignSystem
import Veilshot.Features

/// The image with the choice of what to see above and what is going on below.
Rectangle {
    id: canvas

    required property EditorStore store
    required property EditorPresenter presenter

    color: Theme.canvas

    InteractiveImagePreview {
        anchors.fill: parent
        anchors.leftMargin: 40
        anchors.rightMargin: 40
        anchors.topMargin: 60
        anchors.bottomMargin: 60
        store: canvas.store
    }

    SegmentedPicker {
        anchors.top: parent.top
        anchors.topMargin: 16
        anchors.horizontalCenter: parent.horizontalCenter
        title: "Preview"
        titles: canvas.presenter.previewModeTitles
        currentIndex: canvas.presenter.previewModeIndex
        onActivated: index => canvas.presenter.previewModeIndex = index
    }

    StatusPill {
        id: pill

        readonly property string status: canvas.presenter.statusText
        readonly property bool isShown: status !== ""
        /// Stays while the pill leaves.
        property string lastText: ""
        onStatusChanged: {
            if (status !== "")
                lastText = status;
        }

        anchors.bottom: parent.bottom
        anchors.bottomMargin: isShown ? 18 : -height
        anchors.horizontalCenter: parent.horizontalCenter
        opacity: isShown ? 1 : 0
        visible: opacity > 0

        text: lastText

        ProgressIndicator {
            visible: canvas.presenter.isStatusBusy
        }

        Behavior on anchors.bottomMargin {
            NumberAnimation {
                duration: Theme.spring.duration
                easing: Theme.spring.curve
            }
        }

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.spring.duration
                easing: Theme.spring.curve
            }
        }
    }
}
