import QtQuick
import QtQuick.Templates as T
import Veilshot.DesignSystem

/// A panel in the middle of the window, over everything else until it is closed; Escape closes it. `title` is what it
/// is called aloud.
T.Dialog {
    id: sheet

    // Qt does not give the focus back by itself.
    property Item formerFocus: null
    property int formerReason: Qt.PopupFocusReason

    onAboutToShow: {
        if (formerFocus)
            return; // shown again while it was going
        formerFocus = parent.Window.activeFocusItem;
        formerReason = (formerFocus as T.Control)?.visualFocus ? Qt.TabFocusReason : Qt.PopupFocusReason;
    }
    onClosed: {
        // Not from another one that has come meanwhile.
        if (formerFocus?.visible && formerFocus.enabled && !isCovered())
            formerFocus.forceActiveFocus(formerReason);
        formerFocus = null;
    }

    function isCovered(): bool {
        for (let item = parent.Window.activeFocusItem; item; item = item.parent) {
            if (item.parent === parent)
                return true;
        }
        return false;
    }

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    implicitWidth: contentWidth + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding
    margins: Theme.panelPadding
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape

    background: FloatingPanel {
        radius: Theme.panelRadius
        color: Theme.surface
    }
    T.Overlay.modal: Rectangle {
        color: Theme.scrim

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.spring.duration
                easing: Theme.spring.curve
            }
        }
    }
    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.spring.duration
            easing: Theme.spring.curve
        }
        NumberAnimation {
            property: "scale"
            from: 0.96
            to: 1
            duration: Theme.spring.duration
            easing: Theme.spring.curve
        }
    }
    exit: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.hoverDuration
        }
    }
}
