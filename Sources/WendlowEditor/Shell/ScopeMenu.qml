pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditor

// The scopes to choose from, one line each, indented by depth; there may be thousands.
Item {
    id: anchor

    required property EditorFaceBarModel model

    // The menu is gone, and whatever had the focus in it.
    signal closed(bool byKey)

    anchors.top: parent?.bottom
    anchors.topMargin: 6

    T.Popup {
        id: popup

        readonly property ScopeLines lines: popup.contentItem as ScopeLines

        width: Math.min(420, Math.max(260, (popup.lines?.widest ?? 0) + 10))
        height: Math.min((popup.lines?.tall ?? 0) + 10, anchor.Window.height - 120)
        padding: 5
        modal: false
        focus: true
        visible: anchor.model.pickerOpen
        closePolicy: T.Popup.CloseOnPressOutsideParent
        onClosed: {
            anchor.model.pickerOpen = false;
            anchor.closed(popup.lines.leftByKey);
        }

        background: Rectangle {
            color: Theme.surface
            radius: Theme.radiusCard
            border.width: Theme.strokeHairline
            border.color: Theme.edge
        }

        contentItem: ScopeLines {
            model: anchor.model
            focus: true
        }
    }
}
