pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Veilshot.DesignSystem
import Veilshot.Features

/// The content of the main window: the toolbar over the start screen or over the editor. Pictures can be dropped
/// anywhere on it.
FocusScope {
    id: view

    required property EditorStore store
    required property HistoryStore history
    required property HistoryActions historyActions
    required property ImageImporter importer

    /// While something lies over the view that has shortcuts of its own.
    readonly property bool isCovered: alert.visible || startView.isCovered

    signal settingsRequested

    EditorPresenter {
        id: presenter
        store: view.store
        history: view.history
        isDropTargeted: dropTarget.isTargeted
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.base
    }

    ImageDropTarget {
        id: dropTarget
        anchors.fill: parent
        enabled: !view.isCovered
        store: view.store
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        EditorToolbar {
            Layout.fillWidth: true
            store: view.store
            presenter: presenter
            importer: view.importer
            onSettingsRequested: view.settingsRequested()
            areShortcutsEnabled: !view.isCovered
        }

        Hairline {
            Layout.fillWidth: true
        }

        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            StartView {
                id: startView
                anchors.fill: parent
                store: view.store
                history: view.history
                historyActions: view.historyActions
                isTargeted: dropTarget.isTargeted
                onOpenRequested: view.importer.present()
                opacity: presenter.isEmpty ? 1 : 0
                visible: opacity > 0
                enabled: presenter.isEmpty

                Behavior on opacity {
                    NumberAnimation {
                        duration: Theme.spring.duration
                        easing: Theme.spring.curve
                    }
                }
            }

            T.SplitView {
                id: split

                anchors.fill: parent
                opacity: presenter.isEmpty ? 0 : 1
                visible: opacity > 0
                enabled: !presenter.isEmpty
                handle: Rectangle {
                    id: divider

                    implicitWidth: 1
                    color: Theme.hairline
                    containmentMask: Item {
                        x: -4
                        width: 9
                        height: divider.height
                    }

                    HoverHandler {
                        cursorShape: Qt.SplitHCursor
                    }
                }

                Behavior on opacity {
                    NumberAnimation {
                        duration: Theme.spring.duration
                        easing: Theme.spring.curve
                    }
                }

                EditorCanvas {
                    id: canvas

                    T.SplitView.fillWidth: true
                    T.SplitView.minimumWidth: 560
                    store: view.store
                    presenter: presenter
                }

                InspectorView {
                    T.SplitView.minimumWidth: 280
                    T.SplitView.preferredWidth: 310
                    // The canvas comes first, and nothing is to be cut off.
                    T.SplitView.maximumWidth: Math.max(280, Math.min(350, split.width - canvas.T.SplitView.minimumWidth - 1))
                    store: view.store
                    presenter: presenter
                }
            }
        }
    }

    AlertDialog {
        id: alert
        title: "Couldn’t use that image"
        message: ""
        onDismissed: view.store.errorMessage = ""
    }

    function showError() {
        if (store.errorMessage === "")
            return;
        alert.message = store.errorMessage;
        alert.open();
    }

    Component.onCompleted: showError()

    Connections {
        target: view.store

        function onErrorMessageChanged() {
            view.showError();
        }
    }
}
