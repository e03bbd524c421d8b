import QtQuick
import QtQuick.Templates as T
import Veilshot.DesignSystem

/// A word on what its parent does, shown below it while `visible` after a moment.
T.ToolTip {
    id: tip

    x: parent ? (parent.width - width) / 2 : 0
    y: parent ? parent.height + 6 : 0
    implicitWidth: Math.min(implicitContentWidth + leftPadding + rightPadding, 280)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    margins: 6
    horizontalPadding: 8
    verticalPadding: 5
    delay: 600
    closePolicy: T.Popup.NoAutoClose

    contentItem: Text {
        text: tip.text
        font.pixelSize: Theme.fontNote
        color: Theme.textPrimary
        wrapMode: Text.Wrap
    }
    background: FloatingPanel {
        radius: Theme.rowRadius
    }
}
