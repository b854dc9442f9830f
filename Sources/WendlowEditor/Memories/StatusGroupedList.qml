pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditorFloor
import WendlowEditorMemories

// Work by its status, each group a section that opens and closes.
FocusScope {
    id: face

    required property StatusGroupedModel model
    required property int margin
    required property int column

    readonly property ListView list: rows

    Connections {
        target: face.model
        function onRevealed(index: int): void {
            rows.show(index);
        }
    }

    StageWords {
        anchors.centerIn: parent
        width: face.column
        busy: face.model.reading
        text: face.model.emptyWords
    }
    MemoryRows {
        id: rows
        anchors.fill: parent
        anchors.topMargin: 8
        margin: face.margin
        column: face.column
        topMargin: 4
        focus: true
        twoLines: false
        indent: Theme.iconSize + 4
        lines: face.model.lines
        Accessible.name: qsTr("By status")
        onToggled: index => face.model.toggle(index)
        onEndAsked: rows.show(rows.count - 1)
        bottomMargin: Theme.space24 + (missing.visible ? missing.height + 12 : 0)

        // Behind the last line, and scrolled with it. A footer would do, but Qt 6.4 cannot make a bound one.
        Label {
            id: missing
            parent: rows.contentItem
            x: face.margin
            y: rows.originY + rows.contentHeight + 12
            width: face.column
            visible: face.model.footer.length > 0
            role: Label.Role.Small
            text: face.model.footer
            color: Theme.textSecond
            elide: Text.ElideRight
        }
    }
    Hairline {
        x: face.margin
        y: rows.y
        width: face.column
        visible: !rows.atYBeginning
    }
}
