import QtQuick
import QtQuick.Templates as T
import Veilshot.DesignSystem

/// A menu of `ContextMenuItem`s and `ContextMenuDivider`s; `popup()` opens it at the pointer. It may be one of a
/// `MenuBar`'s.
T.Menu {
    id: menu

    readonly property MenuBar bar: (parent as T.MenuBarItem)?.menuBar as MenuBar
    readonly property FocusMemory focusMemory: bar ? bar.focusMemory : ownMemory
    readonly property FocusMemory ownMemory: FocusMemory {}

    onAboutToShow: focusMemory.keep(parent)
    onClosed: {
        if (!bar?.isOpen())
            focusMemory.giveBack();
    }

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
