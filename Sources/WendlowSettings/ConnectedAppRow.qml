pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowSettings

// One AI app: its tile, name and detail, its switch, and below them what is to be told when it is open.
//
// A scope of its own, so that the focus stays in the row when what had it has gone: the chevron takes it then,
// and the switch, which is out of reach while it works, gets back what it had.
FocusScope {
    id: row

    required property ConnectedAppsModel model

    required property int index
    required property string appId
    required property string name
    required property string detail
    required property string iconAsset
    required property string iconGlyph
    required property bool connected
    required property bool busy
    required property bool drifted
    required property bool open
    required property var strips
    required property var changes
    required property string changesTitle
    required property var notes
    required property AppInventory inventory

    property real unfolded: row.open ? 1 : 0

    Behavior on unfolded {
        enabled: Theme.disclosure > 0
        NumberAnimation { duration: Theme.disclosure; easing.type: Easing.OutQuad }
    }

    // Nothing in the row has the focus, but the row does.
    readonly property bool astray: row.Window.activeFocusItem === row
    // The switch is to have it when its work is done.
    property bool owed: false
    property Item heir: chevron

    function hand(heir: Item, after: int): void {
        row.heir = heir;
        handover.interval = after;
        handover.restart();
    }

    // Most verbs are over before a hop to the chevron and back could be followed.
    onAstrayChanged: if (row.astray) {
        row.owed = row.busy;
        row.hand(chevron, row.busy ? 400 : 0);
    }
    onBusyChanged: if (!row.busy && row.owed) {
        row.owed = false;
        row.hand(power, 0);
    }

    implicitHeight: body.height

    Timer {
        id: handover
        onTriggered: if (row.astray || chevron.activeFocus)
            row.heir.forceActiveFocus(LastInput.reason)
    }

    Accessible.role: Accessible.ListItem
    Accessible.name: row.name
    Accessible.description: row.detail

    Column {
        id: body
        width: row.width

        Hairline {
            visible: row.index > 0
            width: row.width
        }
        Item {
            width: row.width
            height: Theme.scaled(60)

            HoverFill {
                anchors.fill: parent
                anchors.margins: 4
                radius: Theme.radiusButton
                lit: pointer.hovered
                shade: Theme.hover
            }
            AppTile {
                id: tile
                x: Theme.cardPadding
                anchors.verticalCenter: parent.verticalCenter
                asset: row.iconAsset
                glyph: row.iconGlyph
            }
            Label {
                id: title
                anchors.left: tile.right
                anchors.leftMargin: Theme.space12
                anchors.right: status.left
                anchors.rightMargin: Theme.space8
                y: Theme.scaled(12)
                role: Label.Role.Strong
                text: row.name
                elide: Text.ElideRight
            }
            Label {
                id: more
                anchors.left: title.left
                anchors.right: title.right
                y: Theme.scaled(32)
                role: Label.Role.Small
                text: row.detail
                color: pointer.hovered ? Theme.textSecondOnTint : Theme.textSecond
                elide: Text.ElideRight
            }
            HoverHandler { id: pointer }
            Hint {
                text: title.truncated ? row.name + "\n" + row.detail : row.detail
                wanted: pointer.hovered && (title.truncated || more.truncated)
            }
            TapHandler {
                onTapped: row.model.setOpen(row.appId, !row.open)
            }
            Item {
                id: status
                anchors.right: chevron.left
                anchors.rightMargin: 6
                anchors.verticalCenter: parent.verticalCenter
                width: Theme.iconSize
                height: Theme.iconSize

                Spinner {
                    visible: row.busy
                    anchors.centerIn: parent
                }
                StateMark {
                    visible: row.drifted && !row.busy
                    text: qsTr("Not as Wendlow left it")
                }
            }
            Disclosure {
                id: chevron
                anchors.right: power.left
                anchors.rightMargin: Theme.space8
                anchors.verticalCenter: parent.verticalCenter
                open: row.open
                text: row.open ? qsTr("Hide details of %1").arg(row.name) : qsTr("Show details of %1").arg(row.name)
                onClicked: row.model.setOpen(row.appId, !row.open)
            }
            Switch {
                id: power
                anchors.right: parent.right
                anchors.rightMargin: Theme.cardPadding
                anchors.verticalCenter: parent.verticalCenter
                enabled: !row.busy
                on: row.connected
                text: row.name
                description: row.detail
                onClicked: row.connected ? row.model.disconnect(row.appId) : row.model.connect(row.appId)
            }
        }
        Item {
            width: row.width
            height: Math.round(details.height * row.unfolded)
            visible: row.unfolded > 0
            opacity: row.unfolded
            clip: row.unfolded < 1

            Column {
                id: details
                x: Theme.cardPadding + tile.width + Theme.space12
                width: parent.width - x - Theme.cardPadding

                Only {
                    wanted: row.unfolded > 0 || row.open

                    AppDetails {
                        width: details.width
                        name: row.name
                        strips: row.strips
                        changes: row.changes
                        changesTitle: row.changesTitle
                        notes: row.notes
                        inventory: row.inventory
                        onCopied: path => row.model.copySubject(path)
                        onDeed: (action, path) => row.model.act(row.appId, action, path)
                    }
                }
            }
        }
    }
}
