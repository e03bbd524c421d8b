import QtQuick
import QtQuick.Templates as T
import Veilshot.DesignSystem

/// What all buttons have: Space and Return press them, and they show where the keyboard is.
T.AbstractButton {
    id: button

    required text
    property real cornerRadius: Theme.controlRadius
    readonly property bool isHovered: enabled && hovered

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledOpacity
    font.pixelSize: Theme.fontBody

    // Qt's own name comes too late for who asks before assistive tools are known to run.
    Accessible.name: text
    // Qt offers assistive tools the action and leaves it at that.
    Accessible.onPressAction: {
        if (enabled)
            clicked();
    }

    Keys.onReturnPressed: event => pressOnce(event)
    Keys.onEnterPressed: event => pressOnce(event)

    function pressOnce(event: KeyEvent) {
        if (!event.isAutoRepeat)
            clicked();
    }

    FocusRing {
        visible: button.visualFocus
        cornerRadius: button.cornerRadius
    }
}
