import QtQuick
import Veilshot.DesignSystem

/// A title that comes and goes gently.
Text {
    required property bool isShown

    opacity: isShown ? 1 : 0
    visible: opacity > 0
    color: Theme.textPrimary
    font.pixelSize: 16
    font.weight: Font.DemiBold
    font.letterSpacing: -0.2
    Accessible.role: Accessible.Heading
    Accessible.name: text
    Accessible.ignored: !isShown

    Behavior on opacity {
        NumberAnimation {
            duration: Theme.spring.duration
            easing: Theme.spring.curve
        }
    }
}
