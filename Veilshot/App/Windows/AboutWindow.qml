pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Window
import Veilshot.DesignSystem

/// What this program is, and which version of it.
Window {
    id: window

    width: 360
    height: content.implicitHeight + 2 * content.anchors.margins
    minimumWidth: width
    maximumWidth: width
    minimumHeight: height
    maximumHeight: height
    flags: Qt.Dialog
    title: "About Veilshot"
    color: Theme.windowBackground

    Shortcut {
        sequences: ["Escape", StandardKey.Close]
        onActivated: window.close()
    }

    Shortcut {
        sequences: ["Ctrl+Q", "Meta+Q"]
        onActivated: Qt.quit()
    }

    ColumnLayout {
        id: content

        anchors.fill: parent
        anchors.margins: 24
        spacing: 6

        Image {
            Layout.alignment: Qt.AlignHCenter
            Layout.bottomMargin: 6
            source: "qrc:/qt/qml/Veilshot/DesignSystem/Icons/veilshot.svg"
            sourceSize: Qt.size(72, 72)
        }
        Text {
            Layout.alignment: Qt.AlignHCenter
            text: "Veilshot"
            font.pixelSize: 20
            font.weight: Font.DemiBold
            color: Theme.textPrimary
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Text {
            Layout.alignment: Qt.AlignHCenter
            text: "Version " + Qt.application.version
            font.pixelSize: Theme.fontLabel
            color: Theme.textSecondary
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Text {
            Layout.fillWidth: true
            Layout.topMargin: 6
            Layout.bottomMargin: 10
            text: "Makes screenshots safe to share. Everything happens on your machine; nothing is uploaded."
            font.pixelSize: Theme.fontBody
            color: Theme.textPrimary
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        FlatButton {
            Layout.alignment: Qt.AlignHCenter
            kind: FlatButton.Secondary
            text: "OK"
            focus: true
            onClicked: window.close()
        }
    }
}
