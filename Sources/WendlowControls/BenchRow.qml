pragma ComponentBehavior: Bound

import QtQuick

// One control of the bench in all its states, held still. What is looked at is told apart by index: 0
// normal, 1 hover, 2 pressed, 3 focused, 4 disabled, 5 busy.
Item {
    id: row

    required property string text
    required property Component control

    implicitWidth: Theme.scaled(760)
    implicitHeight: Theme.scaled(46)

    Label {
        anchors.verticalCenter: parent.verticalCenter
        role: Label.Role.Caption
        text: row.text
        color: Theme.textSecond
    }
    Repeater {
        model: 6

        Item {
            id: cell

            required property int index

            x: Theme.scaled(116) + Theme.scaled(107.4 * cell.index)
            height: row.height

            Component.onCompleted: {
                const shown = row.control.createObject(cell, {
                    lit: cell.index === 1,
                    sunk: cell.index === 2,
                    ringed: cell.index === 3,
                    enabled: cell.index < 4,
                    busy: cell.index === 5
                }) as Item;
                shown.y = Qt.binding(() => Math.round((cell.height - shown.height) / 2));
            }
        }
    }
}
