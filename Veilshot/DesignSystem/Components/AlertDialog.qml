import QtQuick
import Veilshot.DesignSystem

/// Tells of something that went wrong. `dismissed` comes as it goes, in whichever way that happens.
MessageDialog {
    id: alert

    signal dismissed()

    onAboutToShow: ok.forceActiveFocus()
    onAboutToHide: dismissed()

    FlatButton {
        id: ok

        kind: FlatButton.Primary
        text: "OK"
        onClicked: alert.close()
    }
}
