import QtQuick
import Veilshot.DesignSystem

/// Tells of something that went wrong. `dismissed` comes once it is gone, in whichever way that happened.
MessageDialog {
    id: alert

    signal dismissed()

    onAboutToShow: ok.forceActiveFocus()
    onClosed: dismissed()

    FlatButton {
        id: ok

        kind: FlatButton.Primary
        text: "OK"
        onClicked: alert.close()
    }
}
