pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Veilshot.DesignSystem
import Veilshot.Features

/// One detected area. The pointer over it, or the keyboard's focus, marks the area on the image.
Item {
    id: row

    required property EditorStore store
    required property EditorPresenter presenter
    required property var regionID // a UUID, for which QML has no type
    required property string kind
    required property string singularLabel
    required property string locationLabel

    readonly property bool isMarked: hover.hovered || unblur.activeFocus

    implicitHeight: 26
    Accessible.role: Accessible.ListItem
    Accessible.name: singularLabel + ", " + locationLabel
    onIsMarkedChanged: {
        if (isMarked)
            row.presenter.enterRegion(row.regionID);
        else
            row.presenter.leaveRegion(row.regionID);
    }
    Component.onDestruction: row.presenter.leaveRegion(row.regionID)

    HoverHandler {
        id: hover
    }

    Rectangle {
        anchors.fill: parent
        radius: 5
        color: Theme.elevated
        opacity: row.isMarked ? 1 : 0
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: 6
        spacing: 8

        KindDot {
            kind: row.kind
        }

        InspectorText {
            text: row.singularLabel
            font.pixelSize: Theme.fontLabel
            Accessible.ignored: true
        }

        InspectorText {
            Layout.fillWidth: true
            text: row.locationLabel
            color: Theme.textTertiary
            font.pixelSize: Theme.fontLabel
            elide: Text.ElideRight
            Accessible.ignored: true
        }

        PlainButton {
            id: unblur
            text: "Unblur"
            Accessible.description: tip.text
            font.pixelSize: Theme.fontLabel
            // Not hidden from assistive tools, which point at nothing.
            color: row.isMarked ? Theme.textSecondary : "transparent"
            onClicked: {
                // The row goes; the keyboard shall not start from the top again.
                if (visualFocus)
                    nextItemInFocusChain().forceActiveFocus(Qt.TabFocusReason);
                row.store.removeDetectedRegion(row.regionID);
            }

            ToolTip {
                id: tip
                visible: unblur.hovered || unblur.visualFocus
                text: "Stop hiding this area"
            }
        }
    }
}
