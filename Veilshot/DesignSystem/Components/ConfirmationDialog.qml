import QtQuick
import Veilshot.DesignSystem

/// Asks before something is destroyed. The keyboard starts at "Cancel", so that Return alone destroys nothing.
MessageDialog {
    id: confirmation

    required property string destructiveLabel

    signal confirmed()

    onAboutToShow: cancel.forceActiveFocus(Qt.TabFocusReason)

    FlatButton {
        id: cancel

        kind: FlatButton.Secondary
        text: "Cancel"
        onClicked: confirmation.close()
    }
    FlatButton {
        kind: FlatButton.Secondary
        text: confirmation.destructiveLabel
        textColor: Theme.danger
        onClicked: {
            confirmation.close();
            confirmation.confirmed();
        }
    }
}
