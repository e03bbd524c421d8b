pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Window
import Veilshot.DesignSystem
import Veilshot.Features

/// The main window.
Window {
    id: window

    required property EditorStore store
    required property HistoryStore history
    required property HistoryActions historyActions
    required property ImageImporter importer
    required property AppearanceSetting appearance

    width: 1180
    height: 760
    minimumWidth: 900
    minimumHeight: 560
    title: "Veilshot"
    color: Theme.windowBackground

    EditorView {
        anchors.fill: parent
        store: window.store
        history: window.history
        historyActions: window.historyActions
        importer: window.importer
        onSettingsRequested: {
            settings.show();
            settings.raise();
            settings.requestActivate();
        }
    }

    SettingsWindow {
        id: settings
        transientParent: window
        history: window.history
        appearance: window.appearance
    }
}
