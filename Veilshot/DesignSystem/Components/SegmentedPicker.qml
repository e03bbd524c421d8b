pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Veilshot.DesignSystem

/// One of a few choices, side by side. It shows `currentIndex` and asks for another one with `activated`; whoever owns
/// the choice changes it. One stop for Tab; the arrow keys move the choice. `title` is what it is called aloud.
T.GroupBox {
    id: picker

    required property list<string> titles
    required property int currentIndex
    /// All segments share the picker's width equally.
    property bool fullWidth: false

    signal activated(index: int)

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: 2
    spacing: 2
    font.pixelSize: Theme.fontLabel
    font.weight: Font.Medium

    Accessible.name: title

    Keys.onLeftPressed: step(-1)
    Keys.onRightPressed: step(1)
    Keys.onUpPressed: step(-1)
    Keys.onDownPressed: step(1)

    function step(difference: int) {
        const index = currentIndex + difference;
        if (index < 0 || index >= titles.length)
            return;
        activated(index);
        segments.itemAt(currentIndex).forceActiveFocus(Qt.TabFocusReason);
    }

    onCurrentIndexChanged: selection.moveTo(segments.itemAt(currentIndex))

    background: Rectangle {
        radius: 7
        color: Theme.well
        border.color: Theme.hairline
    }
    contentItem: Item {
        implicitWidth: row.implicitWidth
        implicitHeight: row.implicitHeight

        Rectangle {
            id: selection

            property Item segment: null
            property real startX: 0
            property real startWidth: 0
            property real progress: 1

            // From a start that was noted, so that it follows the segment at once when the layout changes.
            x: segment ? startX + (segment.x - startX) * progress : 0
            width: segment ? startWidth + (segment.width - startWidth) * progress : 0
            height: parent.height
            visible: segment !== null
            radius: Theme.rowRadius
            color: Theme.elevated
            border.color: Theme.outline

            function moveTo(next: Item) {
                const from = Qt.point(x, width);
                if (segment && next)
                    motion.restart();
                startX = from.x;
                startWidth = from.y;
                segment = next;
            }

            NumberAnimation {
                id: motion

                target: selection
                property: "progress"
                from: 0
                to: 1
                duration: Theme.snappy.duration
                easing: Theme.snappy.curve
            }
        }
        Row {
            id: row

            spacing: picker.spacing

            Repeater {
                id: segments

                model: picker.titles
                onItemAdded: (index, item) => {
                    if (index === picker.currentIndex)
                        selection.moveTo(item);
                }

                T.RadioButton {
                    id: segment

                    required property int index
                    required property string modelData
                    readonly property bool isSelected: index === picker.currentIndex

                    text: modelData
                    width: picker.fullWidth
                        ? (picker.availableWidth - (segments.count - 1) * picker.spacing) / segments.count
                        : implicitContentWidth + leftPadding + rightPadding
                    implicitHeight: 24
                    // Without room for it the text matters more than the space around it.
                    horizontalPadding: picker.fullWidth ? 2 : 12
                    // After a click as well, for which Qt changes it: the picker shows what its owner says.
                    checkable: true
                    autoExclusive: false
                    checked: isSelected
                    font: picker.font
                    // Who has the focus cannot cease to be a stop for Tab.
                    focusPolicy: isSelected || activeFocus ? Qt.StrongFocus : Qt.ClickFocus

                    Accessible.name: text
                    Accessible.onPressAction: picker.activated(index)
                    Accessible.onToggleAction: picker.activated(index)

                    onClicked: {
                        if (!isSelected)
                            picker.activated(index);
                        checked = Qt.binding(() => isSelected);
                    }

                    contentItem: Text {
                        text: segment.text
                        font: segment.font
                        color: segment.isSelected ? Theme.textPrimary : Theme.textSecondary
                        horizontalAlignment: Text.AlignHCenter
                        verticalAlignment: Text.AlignVCenter
                        elide: Text.ElideRight
                    }
                    FocusRing {
                        visible: segment.visualFocus
                        cornerRadius: Theme.rowRadius
                    }
                }
            }
        }
    }
}
