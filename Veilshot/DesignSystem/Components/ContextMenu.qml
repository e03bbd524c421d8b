import QtQuick
import QtQuick.Templates as T
import Veilshot.DesignSystem

/// A menu of `ContextMenuItem`s and `ContextMenuDivider`s; `popup()` opens it at the pointer.
T.Menu {
    id: menu

    // Qt does not give the focus back by itself.
    property Item formerFocus: null
    property int formerReason: Qt.PopupFocusReason

    onAboutToShow: {
        formerFocus = parent.Window.activeFocusItem;
        formerReason = (formerFocus as T.Control)?.visualFocus ? Qt.TabFocusReason : Qt.PopupFocusReason;
    }
    onClosed: formerFocus?.forceActiveFocus(formerReason)

    implicitWidth: contentWidth + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding
    contentWidth: list.contentItem.childrenRect.width
    margins: 6
    padding: 5
    cascade: true

    contentItem: ListView {
        id: list

        implicitHeight: contentHeight
        model: menu.contentModel
        currentIndex: menu.currentIndex
        interactive: false
    }
    background: FloatingPanel {
        radius: Theme.controlRadius + 2
    }
    exit: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.hoverDuration
        }
    }
}
