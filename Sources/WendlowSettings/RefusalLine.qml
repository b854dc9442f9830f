pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls

// Why what was asked for was not done, right below what asked for it.
Item {
    id: line

    required property string text

    implicitHeight: line.visible && told.count > 0 ? told.itemAt(0)?.height ?? 0 : 0
    visible: line.text.length > 0

    Accessible.role: Accessible.AlertMessage
    Accessible.name: line.text

    Only {
        id: told

        wanted: line.text.length > 0

        Item {
            width: line.width
            height: words.height

            Icon {
                y: 1
                size: Theme.scaled(14)
                name: "refuse"
                color: Theme.refusal
            }
            Label {
                id: words
                x: Theme.scaled(14) + Theme.space8
                width: parent.width - x
                role: Label.Role.Small
                text: line.text
                color: Theme.refusal
                wrapMode: Text.Wrap
                Accessible.ignored: true
            }
        }
    }
}
