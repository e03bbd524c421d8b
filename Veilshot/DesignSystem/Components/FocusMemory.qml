import QtQuick
import QtQuick.Templates as T

/// Where the keyboard was before something opened over it. Qt does not give the focus back by itself.
QtObject {
    property Item item: null
    property int reason: Qt.PopupFocusReason

    /// Remembers the focus of the window that `place` is in, unless something is remembered already.
    function keep(place: Item): void {
        if (item)
            return;
        item = place.Window.activeFocusItem;
        reason = (item as T.Control)?.visualFocus ? Qt.TabFocusReason : Qt.PopupFocusReason;
    }

    function giveBack(): void {
        item?.forceActiveFocus(reason);
        item = null;
    }
}
