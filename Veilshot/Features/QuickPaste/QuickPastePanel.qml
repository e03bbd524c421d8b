pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Window
import Veilshot.DesignSystem
import Veilshot.Features

/// The window of the quick-paste panel. Drag it by its background.
Window {
    id: panel

    required property QuickPasteSession session
    /// Whether the desktop shows what is behind the corners; otherwise there must be something in them.
    property bool isTranslucent: false

    width: 480
    height: 240
    minimumWidth: width
    maximumWidth: width
    minimumHeight: height
    maximumHeight: height
    flags: Qt.Tool | Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint
    title: "Quick Paste"
    // Always, because a window cannot become translucent later.
    color: "transparent"
    onClosing: close => {
        close.accepted = false;
        session.cancel();
    }

    Rectangle {
        anchors.fill: parent
        visible: !panel.isTranslucent
        color: Theme.surface
    }

    // Not a DragHandler, which would begin a second move as the first one ends.
    MouseArea {
        property point start
        property bool isMoving: false

        anchors.fill: parent
        onPressed: mouse => {
            start = Qt.point(mouse.x, mouse.y);
            isMoving = false;
        }
        onPositionChanged: mouse => {
            const distance = Math.abs(mouse.x - start.x) + Math.abs(mouse.y - start.y);
            if (isMoving || distance < Application.styleHints.startDragDistance)
                return;
            isMoving = true;
            panel.startSystemMove();
        }
    }

    QuickPasteView {
        anchors.fill: parent
        focus: true
        session: panel.session
        isTranslucent: panel.isTranslucent
    }
}
