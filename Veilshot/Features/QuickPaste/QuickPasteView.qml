pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Veilshot.DesignSystem
import Veilshot.Features

/// The content of the quick-paste panel.
FocusScope {
    id: view

    required property QuickPasteSession session
    /// Whether what is behind the panel shows through, also around its corners.
    required property bool isTranslucent

    // Faded as a whole, not part by part through each other; the software renderer cuts layers at some scales.
    layer.enabled: opacity < 1 && GraphicsInfo.api !== GraphicsInfo.Software
    opacity: 0
    scale: 0.98

    // Each showing begins with it.
    Connections {
        target: view.session

        function onIsShownChanged() {
            if (view.session.isShown)
                paste.forceActiveFocus();
        }
    }

    states: State {
        name: "shown"
        when: view.session.isShown

        PropertyChanges {
            view.opacity: 1
            view.scale: 1
        }
    }
    transitions: Transition {
        to: "shown"

        NumberAnimation {
            properties: "opacity,scale"
            duration: Theme.spring.duration
            easing: Theme.spring.curve
        }
    }

    QuickPasteDropTarget {
        anchors.fill: parent
        session: view.session
        onIsTargetedChanged: view.session.isDropTargeted = isTargeted
    }

    VisualEffectBackground {
        anchors.fill: parent
        cornerRadius: view.isTranslucent ? 20 : 0
        color: Qt.alpha(Theme.surface, view.isTranslucent ? 0.94 : 1)
        border.color: view.session.isDropTargeted ? Theme.brand : Theme.outline
        border.width: view.session.isDropTargeted ? 2 : 1

        Behavior on border.color {
            ColorAnimation {
                duration: Theme.spring.duration
                easing: Theme.spring.curve
            }
        }
    }

    ColumnLayout {
        anchors.centerIn: parent
        spacing: 0

        Image {
            Layout.alignment: Qt.AlignHCenter
            source: "qrc:/qt/qml/Veilshot/DesignSystem/Icons/veilshot.svg"
            sourceSize: Qt.size(44, 44)
            Accessible.ignored: true
        }

        Item {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: 12
            implicitWidth: Math.max(invitation.implicitWidth, dropInvitation.implicitWidth)
            implicitHeight: invitation.implicitHeight

            QuickPasteTitle {
                id: invitation
                anchors.horizontalCenter: parent.horizontalCenter
                text: "Paste a screenshot"
                isShown: !view.session.isDropTargeted
            }

            QuickPasteTitle {
                id: dropInvitation
                anchors.horizontalCenter: parent.horizontalCenter
                text: "Drop to open"
                isShown: view.session.isDropTargeted
            }
        }

        Text {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: 4
            text: "Press ⌘V, drop an image here, or open a file. Esc closes this."
            color: Theme.textSecondary
            font.pixelSize: Theme.fontLabel
            horizontalAlignment: Text.AlignHCenter
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Item {
            id: error

            property real presence: view.session.errorMessage === "" ? 0 : 1

            Layout.alignment: Qt.AlignHCenter
            Layout.preferredHeight: presence * (errorText.implicitHeight + 8)
            implicitWidth: errorText.implicitWidth
            visible: presence > 0

            Behavior on presence {
                NumberAnimation {
                    duration: Theme.snappy.duration
                    easing: Theme.snappy.curve
                }
            }

            Text {
                id: errorText

                anchors.bottom: parent.bottom
                opacity: error.presence
                color: Theme.danger
                font.pixelSize: Theme.fontLabel
                Accessible.role: Accessible.AlertMessage
                Accessible.name: text

                // What is leaving still has its words.
                Binding on text {
                    when: view.session.errorMessage !== ""
                    value: view.session.errorMessage
                    restoreMode: Binding.RestoreNone
                }
            }
        }

        RowLayout {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: 16
            spacing: 8

            FlatButton {
                id: paste
                focus: true
                kind: FlatButton.Primary
                text: "Paste"
                onClicked: view.session.paste()
            }

            FlatButton {
                kind: FlatButton.Secondary
                text: "Open Image…"
                onClicked: view.session.openImage()
            }
        }
    }

    BaseButton {
        id: close

        anchors.top: parent.top
        anchors.right: parent.right
        anchors.margins: 12
        implicitWidth: 22
        implicitHeight: 22
        cornerRadius: 11
        text: "Cancel"
        onClicked: view.session.cancel()

        contentItem: Item {
            Symbol {
                anchors.centerIn: parent
                width: Theme.fontNote
                height: Theme.fontNote
                name: "xmark"
                color: close.isHovered ? Theme.textPrimary : Theme.textSecondary
            }
        }
        background: Rectangle {
            radius: close.cornerRadius
            color: close.down ? Theme.hairline : Theme.elevated
            border.color: Theme.outline
        }

        ToolTip {
            visible: close.hovered || close.visualFocus
            text: "Cancel (Esc)"
        }
    }
}
