import QtQuick
import QtQuick.Templates as T
import Veilshot.DesignSystem

/// Attach it: `T.ScrollBar.vertical: ScrollBar { }`. It shows while there is something to scroll, and becomes clearer
/// under the pointer.
T.ScrollBar {
    id: bar

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: 2
    minimumSize: 0.1
    // Only for the pointer: whatever it scrolls to, assistive tools and the keyboard reach at once.
    Accessible.ignored: true
    visible: policy !== T.ScrollBar.AlwaysOff && size < 1

    contentItem: Rectangle {
        implicitWidth: 6
        implicitHeight: 6
        radius: 3
        color: Theme.textSecondary
        opacity: bar.hovered || bar.pressed ? 0.9 : 0.4
    }
}
