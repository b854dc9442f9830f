pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditorFloor
import WendlowEditorMemories

// The memories of one type: filters, the count and the order, and the rows.
FocusScope {
    id: face

    required property MemoriesModel model
    required property int margin
    required property int column

    readonly property ListView list: rows

    Connections {
        target: face.model
        function onRevealed(index: int): void {
            rows.show(index);
        }
        function onTurned(): void {
            rows.currentIndex = 0;
            rows.positionViewAtBeginning();
        }
    }

    FilterBar {
        id: bar
        x: face.margin
        y: Theme.space16
        width: face.column
        model: face.model.filters
        // Rows stay in sight below them.
        tallestChips: Math.round(face.height / 3)
        tallest: face.height - Theme.scaled(200) - 60
    }
    Label {
        id: count
        x: face.margin
        anchors.top: bar.bottom
        anchors.topMargin: Theme.space24
        role: Label.Role.Small
        text: face.model.countLine
        color: Theme.textSecond
    }
    ChoiceWords {
        id: sorts

        // Beside the count, or below it where there is no room.
        readonly property bool below: sorts.visible && count.width + sorts.width + Theme.space16 > face.column

        x: sorts.below ? face.margin : face.margin + face.column - width
        y: sorts.below ? count.y + count.height + Theme.space4 : count.y + Math.round((count.height - height) / 2)
        visible: face.model.countLine.length > 0
        choices: face.model.sorts
        onChosen: key => face.model.sortBy(key)
    }
    Hairline {
        id: line
        x: face.margin
        y: sorts.below ? sorts.y + sorts.height + 3 : count.y + count.height + 7
        width: face.column
        visible: rows.count > 0
    }
    StageWords {
        x: face.margin
        width: face.column
        anchors.verticalCenter: rows.verticalCenter
        busy: face.model.reading
        text: face.model.emptyWords
    }
    MemoryRows {
        id: rows
        anchors.top: line.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        margin: face.margin
        column: face.column
        focus: true
        twoLines: true
        lines: face.model.lines
        Accessible.name: face.model.countLine
        onToggled: index => face.model.toggle(index)
        onAppeared: index => face.model.rowAppeared(index)
        onEndAsked: face.model.goToEnd()
    }
}
