pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditor

// The bar over a face, with the chip that says which scope is looked into.
Item {
    id: bar

    required property EditorFaceBarModel model
    required property int margin
    required property int column
    required property bool showsChip
    // The results that led here; empty for none.
    required property string trail

    // The focus is to go to the rail.
    signal exited
    // The focus is to go to what the stage is about.
    signal passed
    // To the results that led here.
    signal returned

    // Takes the focus to the chip, where it is shown.
    function enter(byKey: bool): void {
        if (bar.showsChip)
            chip.forceActiveFocus(byKey ? Qt.TabFocusReason : Qt.MouseFocusReason);
        else
            bar.exited();
    }

    // A menu leaves the focus nowhere, unless what was pressed instead has taken it.
    function settle(byKey: bool): void {
        const focused = bar.Window.activeFocusItem;
        if (focused && focused !== bar.Window.contentItem)
            return;
        if (bar.showsChip)
            bar.enter(byKey);
        else
            bar.passed();
    }

    implicitHeight: Theme.scaled(48)

    Button {
        id: back
        x: bar.margin - 8
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(implicitWidth, bar.column / 2)
        visible: bar.trail.length > 0
        kind: Button.Kind.Quiet
        small: true
        iconName: "left"
        text: bar.trail
        onClicked: bar.returned()
    }
    Chip {
        id: chip
        x: back.visible ? back.x + back.width + 8 : bar.margin
        anchors.verticalCenter: parent.verticalCenter
        visible: bar.showsChip
        widest: Math.min(Theme.scaled(420), bar.margin + bar.column - chip.x)
        lead: qsTr("scope:")
        text: bar.model.label
        picked: bar.model.narrowed
        open: bar.model.pickerOpen
        onClicked: bar.model.pickerOpen = !bar.model.pickerOpen

        // There until it has closed: a menu that is taken away before takes the focus along.
        Only {
            id: menu

            readonly property bool asked: bar.model.pickerOpen

            wanted: false
            onAskedChanged: menu.wanted = menu.wanted || menu.asked

            ScopeMenu {
                model: bar.model
                onClosed: byKey => {
                    menu.wanted = false;
                    Qt.callLater(bar.settle, byKey);
                }
            }
        }
    }
    Hairline {
        y: parent.height - 1
        width: parent.width
    }
}
