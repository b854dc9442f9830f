import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditor

// One place of the rail: its icon if it has one, its title, its count.
// A tab by its template: Qt 6.4 tells a screen reader the template's role and no other.
T.TabButton {
    id: control

    required property int index
    required property int kind
    required property string title
    required property string count
    required property string symbol
    required property string spoken
    required property bool here
    required property bool dimmed
    required property bool apart
    // The stage shows something else for now.
    property bool elsewhere: false

    readonly property bool marked: control.here && !control.elsewhere
    readonly property bool heading: control.kind === RailModel.Heading
    readonly property bool quiet: control.kind === RailModel.More
    readonly property int gap: control.apart ? 12 : 0

    property bool lit: control.hovered
    property bool sunk: control.down
    property bool ringed: control.visualFocus

    implicitHeight: Theme.scaled(32) + 1 + control.gap
    topInset: control.gap
    bottomInset: 1
    hoverEnabled: true
    checkable: false
    autoExclusive: false
    text: control.title

    Accessible.name: control.spoken
    Accessible.selectable: true
    Accessible.selected: control.here
    Accessible.onPressAction: control.clicked()
    Keys.onReturnPressed: control.clicked()
    Keys.onEnterPressed: control.clicked()

    Item {
        anchors.fill: parent
        anchors.topMargin: control.gap
        anchors.bottomMargin: 1

        Icon {
            id: sign
            x: 8
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.iconSize
            visible: control.symbol.length > 0
            name: control.symbol
            color: control.marked ? Theme.text : Theme.textSecondOnTint
        }
        Label {
            id: words
            x: control.symbol.length > 0 ? sign.x + sign.size + 10 : 8
            width: number.x - x - 8
            anchors.verticalCenter: parent.verticalCenter
            role: control.heading ? Label.Role.Eyebrow : control.marked ? Label.Role.Strong : Label.Role.Body
            text: control.title
            color: control.quiet || control.dimmed || (control.heading && !control.marked) ? Theme.textSecondOnTint : Theme.text
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
        }
        Label {
            id: number
            x: parent.width - width - 8
            anchors.verticalCenter: parent.verticalCenter
            role: Label.Role.Small
            text: control.count
            color: control.marked && control.heading ? Theme.text : Theme.textSecondOnTint
            Accessible.ignored: true
        }
    }

    background: HoverFill {
        radius: Theme.radiusButton
        lit: control.marked || control.lit || control.sunk
        shade: control.marked ? Theme.here : control.sunk ? Theme.pressed : Theme.hover

        FocusRing {
            shown: control.ringed
            inside: true
        }
    }

    Hint {
        text: control.title
        wanted: (control.hovered || control.visualFocus) && words.truncated
    }
}
