pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditor

// What stands in the menu of scopes.
FocusScope {
    id: content

    required property EditorFaceBarModel model

    Accessible.role: Accessible.PopupMenu
    Accessible.name: qsTr("Scopes")

    // Whether it was a key that closed the menu.
    property bool leftByKey: false

    function choose(index: int, byKey: bool): void {
        content.leftByKey = byKey;
        content.model.choose(index);
    }

    // To the next line that is meant by what is typed in one go.
    function look(letter: string): void {
        const first = pause.running ? content.typed : "";
        content.typed = first + letter;
        pause.restart();
        const found = content.model.lineFor(content.typed, lines.currentIndex + (first.length > 0 ? 0 : 1));
        if (found >= 0)
            lines.currentIndex = found;
    }

    property string typed
    Timer {
        id: pause
        interval: 1000
    }

    function manage(byKey: bool): void {
        content.leftByKey = byKey;
        content.model.manageScopes();
    }

    readonly property real widest: lines.widest
    readonly property real tall: lines.contentHeight + manage.height + 9

    Keys.onEscapePressed: {
        content.leftByKey = true;
        content.model.pickerOpen = false;
    }

    ListView {
        id: lines

        property real widest: 0

        width: parent.width
        height: parent.height - manage.height - 9
        clip: true
        focus: true
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        model: content.model
        currentIndex: 0
        Component.onCompleted: {
            lines.currentIndex = content.model.pickedIndex();
            lines.positionViewAtIndex(lines.currentIndex, ListView.Center);
        }

        T.ScrollBar.vertical: ScrollBar {}

        ReadingOrder { rows: lines.contentItem }

        Keys.onReturnPressed: content.choose(lines.currentIndex, true)
        Keys.onEnterPressed: content.choose(lines.currentIndex, true)
        Keys.onSpacePressed: content.choose(lines.currentIndex, true)
        Keys.onPressed: event => {
            const last = lines.count - 1;
            const steps = {
                [Qt.Key_Home]: 0,
                [Qt.Key_End]: last,
                [Qt.Key_PageUp]: Math.max(0, lines.currentIndex - 10),
                [Qt.Key_PageDown]: Math.min(last, lines.currentIndex + 10)
            };
            const letter = event.text.length > 0 && event.text > " " && !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier));
            event.accepted = event.key in steps || letter;
            if (event.key in steps)
                lines.currentIndex = steps[event.key];
            else if (letter)
                content.look(event.text);
        }

        delegate: T.MenuItem {
            id: line

            required property int index
            required property string title
            required property int depth
            required property bool picked

            readonly property bool lit: line.ListView.isCurrentItem && (line.hovered || lines.activeFocus)

            width: lines.width
            implicitHeight: Theme.scaled(28)
            hoverEnabled: true
            // The tabulator key goes from the list to what is below it, not from line to line.
            focusPolicy: Qt.NoFocus
            // One line is lit, whether the pointer or a key came to it last.
            onHoveredChanged: if (line.hovered)
                lines.currentIndex = line.index
            text: line.title
            Accessible.name: line.title
            // Its own, for a button tells a screen reader these, whatever is attached to it.
            checkable: true
            checked: line.picked
            Accessible.onPressAction: content.choose(line.index, true)
            // The line that has the focus takes Return for a click.
            onClicked: content.choose(line.index, !line.hovered)
            Component.onCompleted: lines.widest = Math.max(lines.widest, words.implicitWidth)

            MenuItemFace {
                id: words
                anchors.fill: parent
                text: line.title
                keys: ""
                ticked: line.picked
                lit: line.lit
                indent: 12 * line.depth
            }
            background: Rectangle {
                radius: Theme.radiusTile
                color: line.lit ? Theme.accentSoft : "transparent"
            }
            Hint {
                text: line.title
                wanted: line.hovered && words.truncated
            }
        }
    }
    Hairline {
        x: 8
        y: manage.y - 5
        width: parent.width - 16
    }
    MenuItem {
        id: manage
        y: parent.height - height
        width: parent.width
        text: qsTr("Manage Scopes…")
        lit: manage.hovered || manage.activeFocus
        onClicked: content.manage(manage.visualFocus)
        Keys.onReturnPressed: content.manage(true)
        Keys.onEnterPressed: content.manage(true)
    }
}
