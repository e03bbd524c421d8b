pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import QtQuick.Layouts
import Veilshot.DesignSystem
import Veilshot.Features

/// The panel beside the image: what is hidden and how, and what to do about it.
Rectangle {
    id: inspector

    required property EditorStore store
    required property EditorPresenter presenter

    color: Theme.surface

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        Flickable {
            id: scroller

            Layout.fillWidth: true
            Layout.fillHeight: true
            contentWidth: width
            contentHeight: sections.implicitHeight
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            T.ScrollBar.vertical: ScrollBar {}

            readonly property Item focusItem: Window.activeFocusItem

            onFocusItemChanged: {
                // The pointer only gets at what can be seen.
                if ((focusItem as T.Control)?.visualFocus || focusItem as DetectedAreaRow)
                    reveal(focusItem);
            }

            function reveal(item: Item) {
                let ancestor = item;
                while (ancestor && ancestor !== sections)
                    ancestor = ancestor.parent;
                if (!ancestor)
                    return;
                const top = item.mapToItem(sections, 0, 0).y - Theme.panelPadding;
                const bottom = top + item.height + 2 * Theme.panelPadding;
                contentY = Math.max(0, Math.min(top, Math.max(contentY, bottom - height)));
            }

            ColumnLayout {
                id: sections

                width: scroller.width
                spacing: 0

                ColumnLayout {
                    Layout.fillWidth: true
                    Layout.margins: 16
                    Layout.bottomMargin: 14
                    spacing: 3

                    RowLayout {
                        Layout.fillWidth: true
                        spacing: 8

                        Text {
                            id: summary

                            Layout.fillWidth: !progress.visible
                            text: inspector.presenter.summaryTitle
                            color: Theme.textPrimary
                            font.pixelSize: 15
                            font.weight: Font.DemiBold
                            font.letterSpacing: -0.2
                            elide: Text.ElideRight
                            Accessible.role: Accessible.Heading
                            Accessible.name: inspector.presenter.summaryTitle

                            // The number changes under a short fade.
                            Behavior on text {
                                SequentialAnimation {
                                    NumberAnimation {
                                        target: summary
                                        property: "opacity"
                                        to: 0
                                        duration: Theme.hoverDuration
                                    }
                                    PropertyAction {}
                                    NumberAnimation {
                                        target: summary
                                        property: "opacity"
                                        to: 1
                                        duration: Theme.hoverDuration
                                    }
                                }
                            }
                        }

                        ProgressIndicator {
                            id: progress
                            visible: inspector.presenter.isScanning
                        }
                    }

                    InspectorText {
                        Layout.fillWidth: true
                        text: inspector.presenter.summarySubtitle
                        color: Theme.textSecondary
                        font.pixelSize: Theme.fontLabel
                        wrapMode: Text.WordWrap
                    }
                }

                Hairline {
                    Layout.fillWidth: true
                }

                InspectorSection {
                    Layout.fillWidth: true
                    title: "Detected"

                    ColumnLayout {
                        Layout.fillWidth: true
                        spacing: 7
                        visible: inspector.presenter.categories.length > 0

                        Repeater {
                            model: inspector.presenter.categories

                            RowLayout {
                                id: line

                                required property categoryLine modelData

                                Layout.fillWidth: true
                                spacing: 8

                                KindDot {
                                    kind: line.modelData.kind
                                }

                                InspectorText {
                                    Layout.fillWidth: true
                                    text: line.modelData.label
                                    elide: Text.ElideRight
                                }

                                InspectorText {
                                    text: line.modelData.count
                                    color: Theme.textSecondary
                                }
                            }
                        }
                    }

                    InspectorText {
                        Layout.fillWidth: true
                        visible: inspector.presenter.categories.length === 0
                        text: inspector.presenter.detectedStatus
                        color: Theme.textSecondary
                        wrapMode: Text.WordWrap
                    }

                    DetectedAreaList {
                        Layout.fillWidth: true
                        visible: inspector.presenter.detectedCount > 0 || inspector.presenter.removedCount > 0
                        store: inspector.store
                        presenter: inspector.presenter
                    }
                }

                InspectorSection {
                    Layout.fillWidth: true
                    title: "Style"

                    SegmentedPicker {
                        Layout.fillWidth: true
                        title: "Style"
                        titles: inspector.presenter.styleTitles
                        currentIndex: inspector.presenter.styleIndex
                        fullWidth: true
                        onActivated: index => inspector.presenter.styleIndex = index
                    }

                    ColumnLayout {
                        Layout.fillWidth: true
                        Layout.topMargin: 2
                        spacing: 4
                        visible: inspector.presenter.usesIntensity

                        RowLayout {
                            Layout.fillWidth: true

                            InspectorText {
                                Layout.fillWidth: true
                                text: inspector.presenter.intensityLabel
                            }

                            InspectorText {
                                text: Math.trunc(inspector.store.blurRadius)
                                color: Theme.textSecondary
                            }
                        }

                        Slider {
                            Layout.fillWidth: true
                            label: inspector.presenter.intensityLabel
                            from: 8
                            to: 36
                            value: inspector.store.blurRadius
                            onValueChanged: inspector.store.blurRadius = value
                        }
                    }
                }

                InspectorSection {
                    Layout.fillWidth: true
                    title: "Manual blur"

                    FlatButton {
                        readonly property bool isDrawing: inspector.store.isAddingCustomBlur

                        Layout.fillWidth: true
                        kind: isDrawing ? FlatButton.Primary : FlatButton.Secondary
                        text: isDrawing ? "Done" : "Draw Blur Region"
                        enabled: inspector.presenter.isReady
                        onClicked: inspector.store.isAddingCustomBlur = !isDrawing
                    }

                    RowLayout {
                        Layout.fillWidth: true
                        spacing: 12
                        visible: inspector.presenter.customCount > 0

                        InspectorText {
                            Layout.fillWidth: true
                            text: inspector.presenter.customCountText
                            color: Theme.textSecondary
                        }

                        PlainButton {
                            text: "Undo"
                            onClicked: inspector.store.undoCustomBlur()
                        }

                        PlainButton {
                            text: "Clear"
                            onClicked: inspector.store.clearCustomBlurs()
                        }
                    }
                }

                InspectorText {
                    Layout.fillWidth: true
                    Layout.margins: 16
                    text: inspector.presenter.privacyNote
                    color: Theme.textTertiary
                    font.pixelSize: Theme.fontNote
                    wrapMode: Text.WordWrap
                }
            }
        }

        Hairline {
            Layout.fillWidth: true
        }

        ColumnLayout {
            Layout.fillWidth: true
            Layout.margins: 16
            Layout.topMargin: 12
            Layout.bottomMargin: 12
            spacing: 10

            FlatButton {
                Layout.fillWidth: true
                kind: FlatButton.Primary
                text: inspector.store.didCopy ? "Copied" : "Copy Protected Image"
                enabled: inspector.presenter.isReady
                onClicked: inspector.store.copyProtectedImage()
            }

            RowLayout {
                Layout.fillWidth: true

                PlainButton {
                    text: "Start Over"
                    color: Theme.textSecondary
                    font.pixelSize: Theme.fontLabel
                    onClicked: inspector.store.clear()
                }

                Item {
                    Layout.fillWidth: true
                }

                PlainButton {
                    text: "Scan Again"
                    color: Theme.textSecondary
                    font.pixelSize: Theme.fontLabel
                    enabled: !inspector.presenter.isScanning
                    onClicked: inspector.presenter.scanAgain()
                }
            }
        }
    }
}
