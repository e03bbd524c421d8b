import QtQuick
import QtQuick.Templates as T
import Veilshot.DesignSystem

/// A setting that is on or off, with its text at the left and the switch at the right.
T.Switch {
    id: control

    required text

    implicitWidth: implicitContentWidth + implicitIndicatorWidth + spacing
    implicitHeight: Math.max(implicitContentHeight, implicitIndicatorHeight)
    spacing: 12
    opacity: enabled ? 1 : Theme.disabledOpacity
    font.pixelSize: Theme.fontBody

    Accessible.name: text
    Accessible.onPressAction: pressByTool()
    Accessible.onToggleAction: pressByTool()

    function pressByTool() {
        toggle();
        toggled();
    }

    contentItem: Text {
        rightPadding: control.indicator.width + control.spacing
        text: control.text
        font: control.font
        color: Theme.textPrimary
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
    }
    indicator: Rectangle {
        x: control.width - width
        y: (control.height - height) / 2
        implicitWidth: 38
        implicitHeight: 22
        radius: height / 2
        color: control.checked ? Theme.brand : Theme.outline

        Rectangle {
            x: control.checked ? parent.width - width - 2 : 2
            y: 2
            width: 18
            height: 18
            radius: 9
            color: Theme.onBrand

            Behavior on x {
                NumberAnimation {
                    duration: Theme.snappy.duration
                    easing: Theme.snappy.curve
                }
            }
        }
        FocusRing {
            visible: control.visualFocus
            cornerRadius: 11
        }
    }
}
