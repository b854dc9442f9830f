import QtQuick
import QtQuick.Templates as T
import WendlowControls

// A choice that opens: its words, how many are picked, and a chevron.
T.Button {
    id: chip

    // Stands before the words in the quieter colour.
    property string lead
    property int picks: 0
    property bool open: false
    property bool picked: chip.picks > 0
    property int widest: Theme.scaled(260)

    property bool lit: chip.hovered
    property bool sunk: chip.down
    property bool ringed: chip.visualFocus

    implicitWidth: Math.min(face.implicitWidth + 24, chip.widest)
    implicitHeight: Theme.scaled(28)
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus

    Accessible.name: chip.lead.length > 0 ? chip.lead + " " + chip.text : chip.text
    Accessible.description: chip.picks > 0 ? qsTr("%1 picked").arg(chip.picks) : ""
    Accessible.checkable: true
    Accessible.checked: chip.open
    Accessible.onPressAction: if (chip.enabled)
        chip.clicked()
    Keys.onReturnPressed: chip.clicked()
    Keys.onEnterPressed: chip.clicked()

    Item {
        id: face

        readonly property real fixed: (first.visible ? first.width + 6 : 0) + (number.visible ? number.width + 7 : 0) + chevron.width + 6

        anchors.fill: parent
        anchors.leftMargin: 13
        anchors.rightMargin: 10
        implicitWidth: face.fixed + words.implicitWidth

        Label {
            id: first
            visible: chip.lead.length > 0
            anchors.verticalCenter: parent.verticalCenter
            role: Label.Role.Small
            text: chip.lead
            color: chip.picked ? Theme.textSecondOnTint : Theme.textSecond
            Accessible.ignored: true
        }
        Label {
            id: words
            x: first.visible ? first.width + 6 : 0
            width: Math.min(implicitWidth, face.width - face.fixed)
            anchors.verticalCenter: parent.verticalCenter
            role: chip.lead.length > 0 ? Label.Role.SmallStrong : Label.Role.Small
            text: chip.text
            color: chip.enabled ? Theme.text : Theme.textSecondOnTint
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }
        Label {
            id: number
            visible: chip.picks > 0
            x: words.x + words.width + 7
            anchors.verticalCenter: parent.verticalCenter
            role: Label.Role.SmallBold
            text: chip.picks
            color: Theme.accent
            Accessible.ignored: true
        }
        Icon {
            id: chevron
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.scaled(12)
            name: chip.open ? "up" : "down"
            color: chip.open ? Theme.accent : Theme.textSecondOnTint
        }
    }

    background: Rectangle {
        radius: height / 2
        color: !chip.enabled ? Theme.well : chip.picked ? Theme.accentSoft : Theme.surface
        border.width: chip.open || !chip.picked ? Theme.strokeHairline : 0
        border.color: !chip.enabled ? Theme.hairline : chip.open ? Theme.accent : Theme.edge

        HoverFill {
            anchors.fill: parent
            radius: height / 2
            lit: chip.lit || chip.sunk
            shade: chip.sunk ? Theme.pressed : Theme.hover
        }
        FocusRing {
            shown: chip.ringed
            around: chip.height / 2
        }
    }

    Hint {
        text: chip.text
        wanted: (chip.hovered || chip.visualFocus) && words.truncated
    }
}
