pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowSettings

// What is not recorded, or only counted: the groups of one tier in two columns, in one where there is no room.
Card {
    id: card

    required property string title
    required property string body
    required property var groups
    // What is in this tier always; empty for nothing.
    property string always
    property bool known: true

    signal appWanted(group: RuleGroup)

    readonly property int columns: card.width < Theme.scaled(500) ? 1 : 2
    readonly property real columnWidth: (card.width - 2 * (Theme.cardPadding + 1) - (card.columns - 1) * Theme.space32) / card.columns

    height: content.height + 2 * Theme.cardPadding

    Column {
        id: content
        x: Theme.cardPadding + 1
        y: Theme.cardPadding
        width: parent.width - 2 * x

        Label {
            width: parent.width
            role: Label.Role.Strong
            text: card.title
            wrapMode: Text.Wrap
            Accessible.role: Accessible.Heading
        }
        Label {
            visible: card.body.length > 0
            width: parent.width
            role: Label.Role.Small
            text: card.body
            color: Theme.textSecond
            wrapMode: Text.Wrap
        }
        Item {
            visible: card.always.length > 0
            width: parent.width
            height: always.height + Theme.space12

            Icon {
                y: Theme.space12 + 2
                size: Theme.scaled(16)
                name: "lock"
                color: Theme.textSecond
            }
            Label {
                id: always
                x: Theme.scaled(16) + 10
                y: Theme.space12
                width: parent.width - x
                text: card.always
                wrapMode: Text.Wrap
            }
        }
        Item {
            width: 1
            height: Theme.space16
        }
        Grid {
            columns: card.columns
            columnSpacing: Theme.space32
            rowSpacing: Theme.space16

            Repeater {
                model: card.groups.length

                delegate: RuleGroupView {
                    id: view

                    required property int index

                    visible: view.group.stands || view.group.count > 0
                    width: card.columnWidth
                    height: view.implicitHeight
                    group: card.groups[view.index]
                    tierTitle: card.title
                    known: card.known
                    onAppWanted: card.appWanted(view.group)
                }
            }
        }
    }
}
