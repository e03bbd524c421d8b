pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Veilshot.DesignSystem
import Veilshot.Features

/// The areas that were detected, to be looked through one by one. Collapsed whenever it comes into sight.
ColumnLayout {
    id: list

    required property EditorStore store
    required property EditorPresenter presenter
    property bool isExpanded: false

    spacing: 4
    onVisibleChanged: isExpanded = false

    DisclosureButton {
        text: list.isExpanded ? "Hide areas" : list.presenter.reviewTitle
        isExpanded: list.isExpanded
        onClicked: list.isExpanded = !list.isExpanded
    }

    ColumnLayout {
        Layout.fillWidth: true
        spacing: 0
        opacity: list.isExpanded ? 1 : 0
        visible: opacity > 0
        Accessible.role: Accessible.List
        Accessible.name: "Detected areas"

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.spring.duration
                easing: Theme.spring.curve
            }
        }

        Repeater {
            model: RegionListModel {
                store: list.store
                selection: RegionListModel.Detected
            }

            DetectedAreaRow {
                Layout.fillWidth: true
                store: list.store
                presenter: list.presenter
            }
        }

        PlainButton {
            Layout.leftMargin: 6
            Layout.rightMargin: 6
            Layout.topMargin: 6
            visible: list.presenter.removedCount > 0
            text: "Restore last removed"
            color: Theme.brandBright
            onClicked: list.store.restoreLastRemovedRegion()
        }
    }
}
