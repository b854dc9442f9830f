pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditorFloor
import WendlowEditorMoments

// The page of the moments: its title, and cells in rows below the head of each day, which stays at the top
// while its moments pass. The cells are used again for what comes into sight.
FocusScope {
    id: cells

    required property MomentsFaceModel face
    required property int margin
    required property int column
    property bool busy: false

    readonly property MomentGrid grid: cells.face.grid
    readonly property int count: cells.grid.count
    // The cell of the moment that the keys are at.
    property Item currentItem: null

    readonly property int gap: Theme.space16
    readonly property int columns: Math.max(1, Math.floor((cells.column + cells.gap) / (Theme.scaled(200) + cells.gap)))
    readonly property real pitch: (cells.column + cells.gap) / cells.columns
    readonly property int cellWidth: Math.floor(cells.pitch) - cells.gap
    readonly property int pictureHeight: Math.round(cells.cellWidth * 138 / 220)
    readonly property int firstTop: head.y + head.height + Theme.space16
    readonly property int headHeight: Theme.scaled(20) + 24
    readonly property int clockWidth: Math.ceil(Math.max(...Array.from(cells.grid.wideTimes, time => metrics.advanceWidth(time)))) + 2

    function measure(): void {
        cells.grid.measure(cells.columns, cells.pictureHeight + 8 + Theme.lines[Label.Role.Small], 20, cells.firstTop, Theme.space12, cells.headHeight);
        const scale = cells.Screen.devicePixelRatio;
        cells.face.tiles.setSize(Qt.size(Math.round(cells.cellWidth * scale), Math.round(cells.pictureHeight * scale)), Theme.radiusButton * scale);
    }
    function look(): void {
        if (cells.visible)
            cells.grid.look(view.contentY, view.height);
    }
    // From the first one.
    function begin(): void {
        view.contentY = 0;
        cells.look();
    }
    // To a moment, with the focus.
    function go(place: int): void {
        if (place < 0)
            return;
        const top = cells.grid.topOf(place);
        const row = cells.pictureHeight + 8 + Theme.lines[Label.Role.Small];
        const above = place < cells.columns ? cells.firstTop : cells.headHeight + 8;
        if (top - above < view.contentY)
            view.contentY = Math.max(0, top - above);
        else if (top + row + Theme.space16 > view.contentY + view.height)
            view.contentY = top + row + Theme.space16 - view.height;
        cells.grid.setCurrent(place);
        cells.find();
        if (cells.currentItem)
            cells.currentItem.forceActiveFocus(LastInput.reason);
    }
    function find(): void {
        cells.currentItem = cells.grid.currentCell >= 0 ? slots.itemAt(cells.grid.currentCell) : null;
        if (cells.activeFocus && cells.currentItem && !cells.currentItem.activeFocus)
            cells.currentItem.forceActiveFocus(LastInput.reason);
    }
    function step(step: int): void {
        cells.face.stay();
        cells.go(cells.grid.stepFrom(cells.grid.current, step));
    }

    activeFocusOnTab: cells.count > 0 || cells.activeFocus
    onActiveFocusChanged: cells.find()
    onColumnsChanged: cells.measure()
    onPictureHeightChanged: cells.measure()
    onFirstTopChanged: cells.measure()
    onVisibleChanged: cells.look()
    Component.onCompleted: {
        cells.face.turned.connect(cells.begin);
        cells.face.revealed.connect(cells.go);
        cells.measure();
        cells.look();
    }

    Accessible.role: Accessible.List
    Accessible.name: qsTr("Moments")

    Keys.onPressed: event => {
        const steps = {
            [Qt.Key_Up]: MomentGrid.Up,
            [Qt.Key_Down]: MomentGrid.Down,
            [Qt.Key_Right]: MomentGrid.Right,
            [Qt.Key_PageUp]: MomentGrid.PageUp,
            [Qt.Key_PageDown]: MomentGrid.PageDown,
            [Qt.Key_Home]: MomentGrid.First
        };
        // At the left edge the key goes on to the rail.
        if (event.key === Qt.Key_Left && cells.grid.columnOf(cells.grid.current) > 0)
            steps[Qt.Key_Left] = MomentGrid.Left;
        event.accepted = cells.count > 0 && (event.key in steps || event.key === Qt.Key_End);
        if (!event.accepted)
            return;
        if (event.key === Qt.Key_End)
            cells.face.goToEnd();
        else
            cells.step(steps[event.key]);
    }
    Keys.onReturnPressed: cells.face.openMoment(cells.grid.current)
    Keys.onEnterPressed: cells.face.openMoment(cells.grid.current)
    Keys.onSpacePressed: cells.face.openMoment(cells.grid.current)

    FontMetrics {
        id: metrics
        font: Theme.fonts[Label.Role.Small]
    }
    Connections {
        target: cells.grid
        function onLaidOut(): void {
            view.contentHeight = cells.count > 0 ? cells.grid.contentHeight + Theme.space24 : view.height;
        }
        function onShifted(by: real): void {
            view.contentY += by;
        }
        function onCurrentChanged(): void {
            cells.find();
        }
    }

    Flickable {
        id: view
        objectName: "view"

        anchors.fill: parent
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        pixelAligned: true
        contentWidth: view.width
        contentHeight: view.height
        onContentYChanged: cells.look()
        onHeightChanged: cells.look()

        T.ScrollBar.vertical: ScrollBar {}

        ReadingOrder { rows: view.contentItem }

        Column {
            id: head
            x: cells.margin
            y: Theme.space24
            width: cells.column
            spacing: 2

            Label {
                width: parent.width - 24
                role: Label.Role.Title
                text: cells.face.heading
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignLeft
                Accessible.role: Accessible.Heading
            }
            Label {
                role: Label.Role.Small
                text: cells.face.subheading
                color: Theme.textSecond
                height: Theme.lines[Label.Role.Small]
                Accessible.ignored: text.length === 0
            }
        }
        QuietProgress {
            x: cells.margin + cells.column - width
            y: head.y + 6
            running: cells.busy
        }
        Repeater {
            model: cells.grid.heads

            Label {
                required property real rowTop
                required property string title

                x: cells.margin
                y: rowTop + 12
                width: cells.column
                role: Label.Role.Heading
                text: title
                elide: Text.ElideRight
                horizontalAlignment: Text.AlignLeft
                Accessible.role: Accessible.Heading
            }
        }
        Repeater {
            id: slots

            model: cells.grid

            MomentCell {
                id: cell

                // Whole pixels, as the column's edges do.
                x: cells.margin + Math.round(cell.content.column * cells.pitch)
                y: cell.content.top
                width: cells.cellWidth
                height: cells.pictureHeight + 8 + Theme.lines[Label.Role.Small]
                pictureHeight: cells.pictureHeight
                clockWidth: cells.clockWidth
                tiles: cells.face.tiles
                ringed: cell.activeFocus && cell.content.current && LastInput.byKey
                onPressed: {
                    cells.go(cell.content.place);
                    cells.face.openMoment(cell.content.place);
                }
            }
            onItemAdded: cells.find()
        }
    }
    Rectangle {
        y: cells.grid.stickyOffset
        width: parent.width - 12
        height: cells.headHeight
        visible: cells.grid.stickyTitle.length > 0
        color: Theme.ground

        Label {
            x: cells.margin
            y: 12
            width: cells.column
            role: Label.Role.Heading
            text: cells.grid.stickyTitle
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
            Accessible.role: Accessible.Heading
        }
        Hairline {
            x: cells.margin
            width: cells.column
            anchors.bottom: parent.bottom
        }
    }
}
