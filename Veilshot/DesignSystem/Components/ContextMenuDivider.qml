import QtQuick
import QtQuick.Templates as T
import Veilshot.DesignSystem

T.MenuSeparator {
    implicitWidth: 160
    implicitHeight: 9
    verticalPadding: 4
    horizontalPadding: 9

    contentItem: Rectangle {
        implicitHeight: 1
        color: Theme.outline
    }
}
