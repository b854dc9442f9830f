pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditorFloor
import WendlowEditorMemories

// The filters of a list: a chip for the scope and for each key, and below them the panel of the one that
// is open.
Column {
    id: bar

    required property FilterBarModel model
    // What the chips may take at most, and what the panel.
    required property int tallestChips
    required property int tallest

    spacing: 8

    // Takes the focus from chip to chip; gives whether there is one there.
    function step(from: int, by: int): bool {
        const next = keys.itemAt(from + by);
        next?.forceActiveFocus(by < 0 ? Qt.BacktabFocusReason : Qt.TabFocusReason);
        return next !== null;
    }

    // What was pressed goes from sight.
    function goTo(index: int): void {
        keys.itemAt(Math.min(index, keys.count - 1))?.forceActiveFocus(LastInput.reason);
    }

    // Out of the panel, to the chip that it belongs to.
    function leavePanel(): void {
        for (let at = 0; at < keys.count; ++at)
            if ((keys.itemAt(at) as Chip)?.open)
                keys.itemAt(at).forceActiveFocus(Qt.BacktabFocusReason);
    }

    Keys.onEscapePressed: event => {
        event.accepted = bar.model.panelOpen;
        if (event.accepted) {
            bar.leavePanel();
            bar.model.closePanel();
        }
    }

    Item {
        width: bar.width
        height: chips.height

        Flickable {
            id: chips

            readonly property int line: Theme.smallButtonHeight + flow.spacing
            readonly property int linesShown: Math.max(1, Math.min(4, Math.floor((bar.tallestChips + flow.spacing) / chips.line)))

            width: parent.width - (clear.visible ? clear.width + 4 : 0)
            height: Math.min(flow.implicitHeight, chips.linesShown * chips.line - flow.spacing)
            contentHeight: flow.implicitHeight
            clip: chips.contentHeight > chips.height
            boundsBehavior: Flickable.StopAtBounds

            T.ScrollBar.vertical: ScrollBar {}

            Flow {
                id: flow
                width: chips.width
                spacing: 8

                Repeater {
                    id: keys
                    model: bar.model.chips

                    Chip {
                        id: chip

                        required property int index
                        required property string key
                        required property string label

                        required picks
                        required open

                        text: chip.label
                        onClicked: bar.model.togglePanel(chip.key)
                        Keys.onLeftPressed: event => event.accepted = bar.step(chip.index, -1)
                        Keys.onRightPressed: event => event.accepted = bar.step(chip.index, 1)
                        Keys.onDownPressed: {
                            if (!chip.open)
                                bar.model.togglePanel(chip.key);
                            (panel.itemAt(0) as FilterPanel)?.enter();
                        }
                        // A chip that has the focus is in sight.
                        onActiveFocusChanged: if (chip.activeFocus)
                            chips.contentY = Math.max(Math.min(chips.contentY, chip.y), chip.y + chip.height - chips.height)
                    }
                }
                Button {
                    visible: bar.model.moreChips > 0
                    kind: Button.Kind.Quiet
                    small: true
                    text: qsTr("%1 more").arg(bar.model.moreChips)
                    hint: qsTr("Shows all filters")
                    onClicked: {
                        const before = keys.count;
                        bar.model.showAllChips();
                        bar.goTo(before);
                    }
                }
            }
        }
        Button {
            id: clear
            x: parent.width - width + 8
            visible: bar.model.picked
            kind: Button.Kind.Quiet
            small: true
            text: qsTr("clear")
            hint: qsTr("Clears all filters")
            onClicked: {
                bar.model.clearAll();
                bar.goTo(0);
            }
        }
    }
    Only {
        id: panel
        wanted: bar.model.panelOpen

        FilterPanel {
            width: bar.width
            model: bar.model
            tallest: bar.tallest
            onExited: bar.leavePanel()
        }
    }
}
