pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditor

// The search field and the places of the window with their counts. The arrows go from place to place, or
// through what the search found.
FocusScope {
    id: rail

    required property EditorRoot root

    // While a key is at work: what it opens shows its ring.
    property bool byKey: false

    readonly property bool typing: field.activeFocus

    // The focus is to go to the stage.
    signal exited

    // A narrow window is not given away to the places.
    implicitWidth: Math.min(Theme.sidebarWidth, Math.max(168, Math.floor((parent?.width ?? 0) * 0.32)))

    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Places")

    function enterSearch(): void {
        field.forceActiveFocus(Qt.ShortcutFocusReason);
        field.selectAll();
    }

    function type(text: string): void {
        field.forceActiveFocus(Qt.ShortcutFocusReason);
        field.insert(field.length, text);
        field.typed(field.text);
    }

    function enterHere(): void {
        const item = places.itemAtIndex(rail.root.rail.hereIndex) ?? field;
        item.forceActiveFocus(LastInput.reason);
    }

    // Behind the door there was, the first place that it has shown.
    function focusAt(index: int): void {
        places.positionViewAtIndex(index, ListView.Contain);
        (places.itemAtIndex(index) ?? field).forceActiveFocus(LastInput.reason);
    }

    function arrow(event: var, by: int): void {
        rail.byKey = true;
        event.accepted = rail.root.rail.arrowPress(by, (event.modifiers & Qt.ShiftModifier) !== 0);
        rail.byKey = false;
    }

    Keys.onUpPressed: event => rail.arrow(event, -1)
    Keys.onDownPressed: event => rail.arrow(event, 1)

    Rectangle {
        anchors.fill: parent
        color: Theme.sidebar
    }
    Hairline {
        anchors.right: parent.right
        height: parent.height
    }

    SearchField {
        id: field
        x: 12
        y: 16
        width: parent.width - 25
        focus: true
        value: rail.root.search.text
        onTyped: text => rail.root.search.text = text
        onAccepted: {
            const search = rail.root.search;
            if (!search.searching)
                return;
            search.commit();
            // There was nothing to open.
            if (search.searching && !search.busy)
                rail.exited();
        }
        Keys.onPressed: event => {
            if (Shortcuts.isPressed(Shortcuts.StepBack, event.key, event.modifiers)) {
                event.accepted = rail.root.back();
                return;
            }
            const search = rail.root.search;
            const page = 8;
            event.accepted = search.searching && (event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown);
            if (event.accepted)
                search.select(search.selection + (event.key === Qt.Key_PageUp ? -page : page));
        }
    }

    ListView {
        id: places
        x: 12
        width: parent.width - 25
        anchors.top: field.bottom
        anchors.topMargin: 12
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 12
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        // Places that are scrolled away keep the focus.
        cacheBuffer: 20000
        keyNavigationEnabled: false
        activeFocusOnTab: false
        model: rail.root.rail

        T.ScrollBar.vertical: ScrollBar {}

        ReadingOrder { rows: places.contentItem }
        PlaceKeeper { view: places }

        delegate: RailRow {
            id: place

            width: places.width
            elsewhere: rail.root.search.searching
            // What has the focus stays where the tabulator key finds it.
            focusPolicy: place.activeFocus || place.here || place.kind === RailModel.Heading || place.kind === RailModel.More ? Qt.StrongFocus : Qt.ClickFocus
            onClicked: {
                const index = place.index;
                const isDoor = place.kind === RailModel.More;
                rail.root.rail.activate(index);
                if (isDoor)
                    Qt.callLater(rail.focusAt, index);
            }
            Keys.onRightPressed: rail.exited()
            // The focus goes along with what is open.
            onHereChanged: if (place.here && places.activeFocus) {
                place.forceActiveFocus(rail.byKey ? Qt.TabFocusReason : Qt.OtherFocusReason);
                places.positionViewAtIndex(place.index, ListView.Contain);
            }
        }
    }
}
