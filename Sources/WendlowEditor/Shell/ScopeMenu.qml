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

        width: Math.min(Theme.scaled(420), anchor.Window.width - 2 * Theme.space16, Math.max(Theme.scaled(260), (popup.lines?.widest ?? 0) + 10))
        height: Math.min((popup.lines?.tall ?? 0) + 10, anchor.Window.height - Theme.scaled(92) - 28)
        padding: 5
        margins: 8
        modal: false
        focus: true
        visible: anchor.model.pickerOpen
        closePolicy: T.Popup.CloseOnPressOutsideParent
        // Its lines are the menu to a screen reader. What the template puts around them would be a dialog of no name.
        Component.onCompleted: popup.contentItem.parent.Accessible.ignored = true
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
