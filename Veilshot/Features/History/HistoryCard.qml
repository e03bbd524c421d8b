pragma ComponentBehavior: Bound

import QtQuick
import Veilshot.DesignSystem
import Veilshot.Features

/// One kept copy in the strip. Pressing it says `clicked`. Only the list gives it the keyboard's focus.
BaseButton {
    id: card

    required property HistoryStore history
    required property HistoryActions actions
    required property historyEntry entry
    required property string dateText
    required property string areasText
    required property string accessibleLabel
    required property url thumbnailURL

    text: accessibleLabel
    focusPolicy: Qt.NoFocus
    // A list does not say that it was the keyboard, but nothing else focuses a card.
    onActiveFocusChanged: focusReason = Qt.TabFocusReason

    Keys.onPressed: event => {
        const isShiftF10 = event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier;
        if (event.key === Qt.Key_Menu || isShiftF10) {
            menu.popup(thumbnail.width / 2, thumbnail.height / 2);
            event.accepted = true;
        }
    }

    contentItem: Column {
        opacity: card.down ? 0.7 : 1

        // Not in the button itself, which would take the right button for the left one.
        TapHandler {
            acceptedButtons: Qt.RightButton
            onTapped: point => menu.popup(point.position.x, point.position.y)
        }

        Rectangle {
            id: thumbnail

            width: 168
            height: 104
            radius: 6
            color: Theme.well

            HistoryImage {
                anchors.fill: parent
                url: card.thumbnailURL
                cornerRadius: thumbnail.radius
            }
            Rectangle {
                anchors.fill: parent
                radius: thumbnail.radius
                color: "transparent"
                border.color: card.isHovered ? Theme.outline : Theme.hairline
            }
        }
        Text {
            width: thumbnail.width
            topPadding: 8
            leftPadding: 2
            text: card.dateText
            font.pixelSize: Theme.fontLabel
            font.weight: Font.Medium
            color: Theme.textPrimary
            elide: Text.ElideRight
        }
        Text {
            width: thumbnail.width
            topPadding: 2
            leftPadding: 2
            bottomPadding: 2
            text: card.areasText
            font.pixelSize: Theme.fontNote
            color: Theme.textSecondary
            elide: Text.ElideRight
        }
    }

    ContextMenu {
        id: menu

        ContextMenuItem {
            text: "Copy"
            onTriggered: card.actions.copy(card.entry)
        }
        ContextMenuItem {
            text: "Show in Finder"
            onTriggered: card.actions.showInFileManager(card.entry)
        }
        ContextMenuDivider {}
        ContextMenuItem {
            text: "Delete"
            isDestructive: true
            onTriggered: card.history.deleteEntry(card.entry)
        }
    }
}
