pragma ComponentBehavior: Bound

import QtQuick
import Veilshot.DesignSystem
import Veilshot.Features

/// The image, fitted into the item, with marks on its areas; in drawing mode further areas can be drawn on it.
Item {
    id: root

    required property EditorStore store

    Accessible.role: Accessible.Graphic
    Accessible.name: "Screenshot preview"
    Accessible.description: store.isAddingCustomBlur ? "Drag to add a custom blur region"
                                                     : "Shows the selected screenshot"

    component Fade: NumberAnimation {
        duration: Theme.spring.duration
        easing: Theme.spring.curve
    }

    component Snap: NumberAnimation {
        duration: Theme.snappy.duration
        easing: Theme.snappy.curve
    }

    component Highlight: AreaMark {
        required property string kind
        required property rect normalizedRect
        property real emphasis: 1

        style: AreaMark.Style.Highlight
        area: PreviewGeometry.viewRect(normalizedRect, frame.size)
        frameSize: frame.size
        frameRadius: protectedView.cornerRadius
        fill: Qt.alpha(Theme.tints[kind], 0.16 * emphasis)
        line: Qt.alpha(Theme.tints[kind], emphasis)
    }

    component Outline: AreaMark {
        style: AreaMark.Style.Dashed
        frameSize: frame.size
        frameRadius: protectedView.cornerRadius
        line: Theme.brand
    }

    RegionReveal {
        id: reveal
        store: root.store
    }

    AreaDrawing {
        id: drawing
        store: root.store
        frameSize: Qt.size(frame.width, frame.height)
    }

    Item {
        id: frame

        readonly property rect fitted: PreviewGeometry.fittedFrame(root.store.originalImage.size,
                                                                   Qt.size(root.width, root.height))
        readonly property size size: Qt.size(width, height)
        readonly property bool isProtected: root.store.previewMode === EditorStore.PreviewMode.Protected

        // Whole units: marks that lie between the screen's pixels would be blurred.
        x: Math.round(fitted.x)
        y: Math.round(fitted.y)
        width: fitted.width
        height: fitted.height
        visible: !root.store.originalImage.isNull

        DropShadow {
            x: protectedView.paintedRect.x
            y: protectedView.paintedRect.y
            width: protectedView.paintedRect.width
            height: protectedView.paintedRect.height
            cornerRadius: protectedView.cornerRadius
            blurRadius: 20
            offset: Qt.point(0, 10)
            color: Theme.imageShadow
        }

        BitmapView {
            id: protectedView
            anchors.fill: parent
            store: root.store
            content: BitmapView.Content.Protected
            cornerRadius: 8
        }

        BitmapView {
            anchors.fill: parent
            store: root.store
            content: BitmapView.Content.Original
            cornerRadius: protectedView.cornerRadius
            opacity: frame.isProtected ? 0 : 1
            visible: opacity > 0

            Behavior on opacity { Fade {} }
        }

        Item {
            anchors.fill: parent
            clip: true

            Item {
                anchors.fill: parent
                opacity: frame.isProtected ? 1 : 0
                visible: opacity > 0

                Behavior on opacity { Fade {} }

                Item {
                    anchors.fill: parent
                    opacity: reveal.isActive ? 1 : 0
                    visible: opacity > 0

                    Behavior on opacity {
                        id: revealing

                        NumberAnimation {
                            duration: revealing.targetValue > 0 ? 300 : 700
                            easing.type: revealing.targetValue > 0 ? Easing.OutQuad : Easing.InOutQuad
                        }
                    }

                    Repeater {
                        model: RegionListModel {
                            store: root.store
                            selection: RegionListModel.Selection.Detected
                        }

                        Highlight {
                            emphasis: 0.6
                        }
                    }
                }

                Repeater {
                    model: RegionListModel { store: root.store }
                    onItemRemoved: (index, item) => farewell.takeOver(item as AreaMark)

                    Highlight {
                        required property bool isHighlighted

                        opacity: isHighlighted ? 1 : 0
                        scale: isHighlighted ? 1 : farewell.farScale
                        visible: opacity > 0

                        Behavior on opacity { Snap {} }
                        Behavior on scale { Snap {} }
                    }
                }

                // An area that is removed while it is highlighted takes its item with it.
                AreaMark {
                    id: farewell

                    readonly property real farScale: 1.04

                    style: AreaMark.Style.Highlight
                    frameSize: frame.size
                    frameRadius: protectedView.cornerRadius
                    opacity: 0
                    visible: opacity > 0

                    function takeOver(removed: AreaMark) {
                        if (removed.opacity === 0)
                            return;
                        area = removed.area;
                        fill = removed.fill;
                        line = removed.line;
                        fading.from = removed.opacity;
                        growing.from = removed.scale;
                        going.restart();
                    }

                    ParallelAnimation {
                        id: going

                        Snap {
                            id: fading
                            target: farewell
                            property: "opacity"
                            to: 0
                        }
                        Snap {
                            id: growing
                            target: farewell
                            property: "scale"
                            to: farewell.farScale
                        }
                    }
                }
            }

            Item {
                anchors.fill: parent
                visible: root.store.isAddingCustomBlur

                Repeater {
                    model: RegionListModel {
                        store: root.store
                        selection: RegionListModel.Selection.Custom
                    }

                    Outline {
                        required property rect normalizedRect

                        area: PreviewGeometry.viewRect(normalizedRect, frame.size)
                    }
                }

                Outline {
                    visible: drawing.hasDraft
                    area: drawing.draftRect
                    fill: Qt.alpha(Theme.brand, 0.16)
                }
            }
        }

        Rectangle {
            x: protectedView.paintedRect.x
            y: protectedView.paintedRect.y
            width: protectedView.paintedRect.width
            height: protectedView.paintedRect.height
            radius: protectedView.cornerRadius
            color: "transparent"
            border.color: Theme.imageOutline
        }

        // Only for the cursor, which a HoverHandler would not change before the pointer moves. It belongs to the item:
        // there is nothing to put back when the pointer leaves.
        MouseArea {
            anchors.fill: parent
            acceptedButtons: Qt.NoButton
            cursorShape: root.store.isAddingCustomBlur ? Qt.CrossCursor : Qt.ArrowCursor
        }

        DragHandler {
            target: null
            dragThreshold: 3
            acceptedButtons: Qt.LeftButton
            onCentroidChanged: {
                if (active)
                    drawing.drag(centroid.pressPosition, centroid.position)
            }
            onActiveChanged: {
                // The first movement may be the only one.
                if (active)
                    drawing.drag(centroid.pressPosition, centroid.position)
                else
                    drawing.finish()
            }
        }
    }
}
