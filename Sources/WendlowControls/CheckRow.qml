import QtQuick
import QtQuick.Templates as T
import WendlowControls

// A row with a check box, its words and a number. It shows what its owner says; a press asks for the
// other state and changes nothing by itself.
T.CheckBox {
    id: row

    required property bool on
    property string count
    property string tip

    property bool lit: row.hovered
    property bool sunk: row.down
    property bool ringed: row.visualFocus

    implicitHeight: Theme.scaled(32)
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    // Not `checkState`: what is set by that alone is never told to a screen reader.
    checked: row.on
    nextCheckState: () => row.checkState

    Accessible.name: row.count.length > 0 ? row.text + ", " + row.count : row.text
    Accessible.checked: row.on
    Accessible.onPressAction: row.clicked()
    Accessible.onToggleAction: row.clicked()
    Keys.onReturnPressed: row.clicked()
    Keys.onEnterPressed: row.clicked()

    indicator: null
    Item {
        anchors.fill: parent

        Rectangle {
            id: box
            x: 12
            anchors.verticalCenter: parent.verticalCenter
            width: Theme.iconSize
            height: Theme.iconSize
            radius: Theme.radiusTag
            color: row.on ? Theme.accent : "transparent"
            border.width: row.on ? 0 : Theme.strokeControl
            border.color: row.lit ? Theme.textSecondOnTint : Theme.control

            Icon {
                visible: row.on
                anchors.centerIn: parent
                size: Theme.iconSize
                name: "tick"
                color: Theme.inkOnAccent
            }
        }
        Label {
            id: words
            x: box.x + box.width + 10
            width: number.x - x - 8
            anchors.verticalCenter: parent.verticalCenter
            text: row.text
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
        }
        Label {
            id: number
            x: parent.width - width - 12
            anchors.verticalCenter: parent.verticalCenter
            role: Label.Role.Small
            text: row.count
            color: row.lit || row.sunk ? Theme.textSecondOnTint : Theme.textSecond
            Accessible.ignored: true
        }
    }

    background: HoverFill {
        radius: Theme.radiusButton
        lit: row.lit || row.sunk
        shade: row.sunk ? Theme.pressed : Theme.hover

        FocusRing {
            shown: row.ringed
            inside: true
        }
    }

    Hint {
        text: row.tip
        wanted: (row.hovered || row.visualFocus) && words.truncated
    }
}
