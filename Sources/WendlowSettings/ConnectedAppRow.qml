pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowSettings

// One AI app: its tile, name and detail, its switch, and below them what is to be told when it is open.
Column {
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
    required property var notes
    required property AppInventory inventory

    property real unfolded: row.open ? 1 : 0

    Behavior on unfolded {
        enabled: Theme.disclosure > 0
        NumberAnimation { duration: Theme.disclosure; easing.type: Easing.OutQuad }
    }

    Accessible.role: Accessible.ListItem
    Accessible.name: row.name
    Accessible.description: row.detail

    Hairline {
        visible: row.index > 0
        width: row.width
    }
    Item {
        width: row.width
        height: 60

        AppTile {
            id: tile
            x: Theme.cardPadding
            y: 14
            asset: row.iconAsset
            glyph: row.iconGlyph
        }
        Label {
            id: title
            anchors.left: tile.right
            anchors.leftMargin: Theme.space12
            anchors.right: status.left
            anchors.rightMargin: Theme.space8
            y: 12
            role: Label.Role.Strong
            text: row.name
            elide: Text.ElideRight
        }
        Label {
            anchors.left: title.left
            anchors.right: title.right
            y: 32
            role: Label.Role.Small
            text: row.detail
            color: Theme.textSecond
            elide: Text.ElideRight
        }
        HoverHandler { id: pointer }
        TapHandler {
            onTapped: row.model.setOpen(row.appId, !row.open)
        }
        Item {
            id: status
            anchors.right: chevron.left
            anchors.rightMargin: 6
            anchors.verticalCenter: parent.verticalCenter
            width: 16
            height: 16

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
            x: 64
            width: parent.width - x - Theme.cardPadding

            Only {
                wanted: row.unfolded > 0 || row.open

                AppDetails {
                    width: details.width
                    name: row.name
                    notes: row.notes
                    inventory: row.inventory
                    onCopied: path => row.model.copySubject(path)
                }
            }
        }
    }
}
