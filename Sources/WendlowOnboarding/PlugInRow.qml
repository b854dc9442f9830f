import QtQuick
import QtQuick.Templates as T
import WendlowControls

// An AI app that can be plugged in: the whole row is its check box. It shows what is so, and a press asks for the
// other state; while that is being done a spinner stands in place of the box, and the row keeps the focus.
T.CheckBox {
    id: row

    required property int index
    required property string appId
    required property string name
    required property string detail
    required property string iconAsset
    required property string iconGlyph
    required property bool connected
    required property bool busy
    required property string refusal
    required property string spoken

    readonly property bool refused: row.refusal.length > 0
    readonly property bool lit: row.hovered && !row.busy

    signal asked(bool on)

    function press(): void {
        if (!row.busy)
            row.asked(!row.connected);
    }

    implicitHeight: Theme.scaled(56) + (row.index > 0 ? 1 : 0)
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    // Not `checkState`: what is set by that alone is never told to a screen reader.
    checked: row.connected
    nextCheckState: () => row.checkState
    onClicked: row.press()

    Accessible.name: row.spoken
    Accessible.checked: row.connected
    Accessible.description: row.busy ? qsTr("Working…") : row.refusal
    Accessible.onPressAction: row.press()
    Accessible.onToggleAction: row.press()
    Keys.onReturnPressed: row.press()
    Keys.onEnterPressed: row.press()

    indicator: null
    contentItem: Item {}
    background: Item {
        Hairline {
            visible: row.index > 0
            width: parent.width
        }
        HoverFill {
            anchors.fill: parent
            anchors.topMargin: row.index > 0 ? 5 : 4
            anchors.bottomMargin: 4
            anchors.leftMargin: 4
            anchors.rightMargin: 4
            radius: Theme.radiusButton
            lit: row.lit
            shade: row.down ? Theme.pressed : Theme.hover

            FocusRing {
                shown: row.visualFocus
                inside: true
            }
        }
    }

    Item {
        id: face
        y: row.index > 0 ? 1 : 0
        width: row.width
        height: Theme.scaled(56)

        AppTile {
            id: tile
            x: Theme.cardPadding
            anchors.verticalCenter: parent.verticalCenter
            asset: row.iconAsset
            glyph: row.iconGlyph
        }
        Label {
            id: title
            x: tile.x + tile.width + Theme.space12
            y: Theme.scaled(9)
            width: box.x - Theme.space12 - x
            role: Label.Role.Strong
            text: row.name
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
        }
        // In place of the detail, so that no row grows.
        Icon {
            id: sign
            visible: row.refused
            x: title.x
            anchors.verticalCenter: more.verticalCenter
            size: Theme.scaled(14)
            name: "refuse"
            color: Theme.refusal
        }
        Label {
            id: more
            x: title.x + (row.refused ? sign.size + Theme.space4 : 0)
            y: Theme.scaled(30)
            width: box.x - Theme.space12 - x
            role: Label.Role.Small
            text: row.refused ? row.refusal.replace(/\n/g, " ") : row.detail
            color: row.refused ? Theme.refusal : row.lit ? Theme.textSecondOnTint : Theme.textSecond
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
        }
        Item {
            id: box
            x: parent.width - width - Theme.cardPadding
            anchors.verticalCenter: parent.verticalCenter
            width: Theme.iconSize
            height: Theme.iconSize

            Spinner {
                visible: row.busy
                size: parent.width
            }
            CheckBoxFace {
                visible: !row.busy
                on: row.connected
                lit: row.lit
            }
        }
    }
    Hint {
        text: (title.truncated ? row.name + "\n" : "") + (row.refused ? row.refusal : row.detail)
        wanted: (row.hovered || row.visualFocus) && (title.truncated || more.truncated)
        leading: true
    }
}
