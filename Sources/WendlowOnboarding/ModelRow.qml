import QtQuick
import WendlowControls

// One of the local models: how it stands, and a line that fills while it comes. Its height stays.
Item {
    id: row

    required property int index
    // As LocalModelsList has it: `name`, `line`, `state` ("done", "present", "waiting" or "progress"), `fraction`,
    // below 0 where there is no bar, and `spoken`.
    required property var model

    readonly property string standing: row.model.state
    readonly property bool there: row.standing === "done" || row.standing === "present"
    readonly property real fraction: row.model.fraction

    implicitHeight: face.y + face.height

    Accessible.role: Accessible.ListItem
    Accessible.name: row.model.spoken

    Hairline {
        visible: row.index > 0
        width: parent.width
    }
    Item {
        id: face
        y: row.index > 0 ? 1 : 0
        width: parent.width
        height: Theme.scaled(52)

        Item {
            id: sign
            x: Theme.cardPadding
            anchors.verticalCenter: title.verticalCenter
            width: Theme.iconSize
            height: Theme.iconSize

            Icon {
                visible: row.there
                size: parent.width
                name: "tick"
                color: Theme.accent
            }
            Spinner {
                visible: row.standing === "progress"
                size: parent.width
            }
            Rectangle {
                visible: row.standing === "waiting"
                anchors.fill: parent
                anchors.margins: 1
                radius: width / 2
                color: "transparent"
                border.width: 1
                border.color: Theme.control
            }
        }
        Label {
            id: title
            x: sign.x + sign.width + Theme.space12
            anchors.verticalCenter: parent.verticalCenter
            width: Math.max(0, figures.x - Theme.space12 - x)
            role: Label.Role.Strong
            text: row.model.name
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
        }
        Label {
            id: figures
            x: parent.width - width - Theme.cardPadding
            width: Math.min(implicitWidth, parent.width * 0.6)
            anchors.verticalCenter: parent.verticalCenter
            role: Label.Role.Small
            text: row.model.line
            color: Theme.textSecond
            elide: Text.ElideLeft
            Accessible.ignored: true
        }
        Rectangle {
            visible: row.fraction >= 0
            x: title.x
            y: parent.height - height - Theme.scaled(6)
            width: parent.width - x - Theme.cardPadding
            height: 4
            radius: 2
            color: Theme.track

            Rectangle {
                width: Math.max(parent.height, Math.round(parent.width * Math.min(1, row.fraction)))
                height: parent.height
                radius: parent.radius
                color: Theme.accent

                Behavior on width {
                    enabled: Theme.counting > 0
                    NumberAnimation { duration: Theme.counting; easing.type: Easing.OutQuad }
                }
            }
        }
        HoverHandler { id: pointer }
        Hint {
            text: row.model.spoken
            wanted: pointer.hovered && (title.truncated || figures.truncated)
            leading: true
        }
    }
}
