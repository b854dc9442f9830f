pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditorFloor
import WendlowEditorMemories

// The values of one filter to pick from, in columns.
Rectangle {
    id: panel

    required property FilterBarModel model
    required property int tallest

    readonly property int columns: panel.width >= Theme.scaled(560) ? 3 : panel.width >= Theme.scaled(340) ? 2 : 1
    // Where the rows scroll, "clear" has a line of its own below them.
    readonly property bool scrolls: panel.lines * panel.line + 18 > panel.tallest
    readonly property int line: Theme.scaled(32)
    readonly property int foot: panel.scrolls && panel.model.panelPicked ? Theme.smallButtonHeight + 6 : 0
    readonly property int lines: Math.ceil((values.count + (panel.model.panelPicked ? 1 : 0)) / panel.columns)

    // The focus is to go back to the chip.
    signal exited

    // The focus goes in, to the first value.
    function enter(): void {
        panel.go(0);
    }

    function go(index: int): void {
        values.positionViewAtIndex(index, GridView.Contain);
        values.itemAtIndex(index)?.forceActiveFocus(LastInput.reason);
    }

    implicitHeight: Math.max(panel.line + 18 + panel.foot, Math.min(panel.lines * panel.line + 18, panel.tallest))
    radius: Theme.radiusCard
    color: Theme.surface
    border.width: Theme.strokeHairline
    border.color: Theme.edge

    Accessible.role: Accessible.Grouping
    Accessible.name: panel.model.panelLabel

    Keys.onPressed: event => {
        const at = values.focusedIndex;
        const steps = {
            [Qt.Key_Left]: at % panel.columns === 0 ? at : at - 1,
            [Qt.Key_Right]: at + 1,
            [Qt.Key_Up]: at - panel.columns,
            [Qt.Key_Down]: at + panel.columns
        };
        event.accepted = at >= 0 && event.key in steps;
        if (!event.accepted)
            return;
        if (steps[event.key] < 0)
            panel.exited();
        else if (steps[event.key] < values.count)
            panel.go(steps[event.key]);
    }

    GridView {
        id: values

        property int focusedIndex: -1

        x: 9
        y: 9
        width: parent.width - 18
        height: parent.height - 18 - panel.foot
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        cellWidth: Math.floor(values.width / panel.columns)
        cellHeight: panel.line
        keyNavigationEnabled: false
        // "clear" takes the last cell.
        bottomMargin: panel.foot === 0 && panel.model.panelPicked && values.count % panel.columns === 0 ? panel.line : 0
        model: panel.model.values

        T.ScrollBar.vertical: ScrollBar {}

        ReadingOrder { rows: values.contentItem }
        PlaceKeeper { view: values }

        delegate: CheckRow {
            id: value

            required property int index
            required property string title
            required property bool picked

            required count
            required tip

            width: values.cellWidth
            text: value.title
            on: value.picked
            onClicked: panel.model.toggleValue(value.index)
            onActiveFocusChanged: {
                if (value.activeFocus) {
                    values.focusedIndex = value.index;
                    values.positionViewAtIndex(value.index, GridView.Contain);
                } else if (values.focusedIndex === value.index) {
                    values.focusedIndex = -1;
                }
            }
        }
    }
    Button {
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 11
        visible: panel.model.panelPicked
        kind: Button.Kind.Quiet
        small: true
        text: qsTr("clear")
        hint: qsTr("Clears %1").arg(panel.model.panelLabel)
        onClicked: {
            panel.model.clearPanel();
            panel.go(0);
        }
    }
}
