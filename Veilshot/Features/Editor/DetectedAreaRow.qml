pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Veilshot.DesignSystem
import Veilshot.Features

/// One detected area. The pointer over it, or the keyboard's focus, marks the area on the image.
SingleActionItem {
    id: row

    required property EditorStore store
    required property EditorPresenter presenter
    required property var regionID // a UUID, for which QML has no type
    required property string kind
    required property string singularLabel
    required property string locationLabel

    readonly property bool isMarked: hover.hovered || activeFocus

    label: singularLabel + ", " + locationLabel
    actionName: "Unblur"
    actionDescription: "Stop hiding this area"
    onActionTriggered: {
        // The row goes; the keyboard shall not start from the top again.
        if (activeFocus)
            nextItemInFocusChain().forceActiveFocus(Qt.TabFocusReason);
        row.store.removeDetectedRegion(row.regionID);
    }

    implicitHeight: 26
    activeFocusOnTab: true
    Accessible.role: Accessible.ListItem
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
        radius: Theme.rowRadius
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
        }

        InspectorText {
            Layout.fillWidth: true
            text: row.locationLabel
            color: Theme.textTertiary
            font.pixelSize: Theme.fontLabel
            elide: Text.ElideRight
        }

        PlainButton {
            id: unblur
            text: row.actionName
            font.pixelSize: Theme.fontLabel
            color: Theme.textSecondary
            visible: row.isMarked
            focusPolicy: Qt.NoFocus
            onClicked: row.actionTriggered()

            ToolTip {
                visible: unblur.hovered
                text: row.actionDescription
            }
        }
    }

    FocusRing {
        visible: row.activeFocus
        cornerRadius: Theme.rowRadius
        anchors.margins: -1
    }
}
