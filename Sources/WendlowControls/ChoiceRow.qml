import QtQuick
import QtQuick.Templates as T
import WendlowControls

// One of several that exclude each other, each on a row of its own. It shows what its owner says; a press
// asks to be the one and changes nothing by itself.
T.RadioButton {
    id: row

    required property bool on
    // Whether Tab stops here; of a group it does so at one row, and the arrows walk the others.
    property bool tabStop: true

    property bool lit: row.hovered
    property bool sunk: row.down
    property bool ringed: row.visualFocus

    implicitWidth: words.x + words.implicitWidth
    implicitHeight: Theme.scaled(28)
    hoverEnabled: true
    checkable: false
    checked: row.on
    autoExclusive: false
    focusPolicy: row.tabStop ? Qt.StrongFocus : Qt.ClickFocus

    Accessible.name: row.text
    Accessible.checkable: true
    Accessible.checked: row.on
    Accessible.onPressAction: if (row.enabled)
        row.clicked()
    Accessible.onToggleAction: if (row.enabled)
        row.clicked()
    Keys.onReturnPressed: row.clicked()
    Keys.onEnterPressed: row.clicked()

    indicator: null
    Item {
        anchors.fill: parent

        Rectangle {
            id: ring
            anchors.verticalCenter: parent.verticalCenter
            width: Theme.iconSize
            height: Theme.iconSize
            radius: height / 2
            color: row.on ? Theme.accent : "transparent"
            border.width: row.on ? 0 : Theme.strokeControl
            border.color: row.lit || row.sunk ? Theme.textSecondOnTint : Theme.control

            Rectangle {
                visible: row.on
                anchors.centerIn: parent
                // Even as the ring is, or odd, so that it is in its middle.
                width: ring.width - 2 * Theme.scaled(5)
                height: width
                radius: height / 2
                color: Theme.inkOnAccent
            }
            FocusRing {
                shown: row.ringed
                around: ring.radius
            }
        }
        Label {
            id: words
            x: ring.width + 12
            width: Math.max(0, parent.width - x)
            anchors.verticalCenter: parent.verticalCenter
            text: row.text
            color: row.enabled ? Theme.text : Theme.textSecondOnTint
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
        }
    }

    Hint {
        text: row.text
        wanted: (row.hovered || row.visualFocus) && words.truncated
    }
}
