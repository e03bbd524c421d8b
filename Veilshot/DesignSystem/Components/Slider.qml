import QtQuick
import QtQuick.Templates as T
import Veilshot.DesignSystem

/// A small slider. The pointer moves it freely; the keyboard, the wheel and assistive tools by `stepSize`.
T.Slider {
    id: slider

    required property string label

    implicitWidth: 120
    implicitHeight: handle.implicitHeight
    stepSize: (to - from) / 20
    opacity: enabled ? 1 : Theme.disabledOpacity
    // Faded as a whole, not part by part through each other; the software renderer cuts layers at some scales.
    layer.enabled: !enabled && GraphicsInfo.api !== GraphicsInfo.Software

    Accessible.name: label
    Accessible.onIncreaseAction: step(increase)
    Accessible.onDecreaseAction: step(decrease)

    function step(change: var) {
        change();
        moved();
    }

    background: Rectangle {
        y: (slider.height - height) / 2
        width: slider.width
        height: 4
        radius: 2
        color: Theme.outline

        Rectangle {
            width: slider.handle.x + slider.handle.width / 2
            height: parent.height
            radius: parent.radius
            color: Theme.brand
        }
    }
    handle: Rectangle {
        x: slider.visualPosition * (slider.width - width)
        y: (slider.height - height) / 2
        implicitWidth: 16
        implicitHeight: 16
        radius: 8
        color: slider.pressed ? Theme.brightened(Theme.onBrand, -0.06) : Theme.onBrand
        border.color: Theme.outline

        DropShadow {
            anchors.fill: parent
            z: -1
            cornerRadius: 8
            blurRadius: 3
            offset: Qt.point(0, 1)
            color: Theme.imageShadow
        }
        FocusRing {
            visible: slider.visualFocus
            cornerRadius: 8
        }
    }
}
