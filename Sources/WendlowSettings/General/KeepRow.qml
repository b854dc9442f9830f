pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowSettings

// A row of the table of disk use: what it is, what it costs, and whether it is kept.
Item {
    id: row

    required property KeepColumns columns
    required property string label
    required property string rate
    required property string month
    required property string used
    // Null where it is always kept.
    required property DaemonSwitch keep
    // What goes on with it; empty for nothing.
    property string note
    property bool working: false

    signal toggled(on: bool)

    readonly property string refusal: row.keep ? row.keep.refusal : ""
    readonly property bool second: row.columns.stacked || row.note.length > 0
    // Larger words take more lines where there is little room.
    readonly property int line: Math.max(Theme.scaled(row.second ? 60 : 52), words.height + 2 * Theme.space8)

    implicitHeight: row.line + (told.visible ? told.height + Theme.space12 : 0)

    Accessible.role: Accessible.ListItem
    Accessible.name: row.label
    Accessible.description: (row.keep ? qsTr("%1, %2 a month, used: %3") : qsTr("%1, %2 a month, used: %3, always saved")).arg(row.rate).arg(row.month).arg(row.used)

    Hairline {
        width: row.width
    }
    Column {
        id: words
        x: Theme.cardPadding
        y: Math.round((row.line - height) / 2)
        width: row.columns.nameWidth - Theme.space12

        Label {
            id: name
            width: parent.width
            text: row.label
            elide: Text.ElideRight
            wrapMode: row.columns.stacked ? Text.Wrap : Text.NoWrap

            HoverHandler { id: pointer }
            Hint {
                text: row.label
                wanted: pointer.hovered && name.truncated
            }
        }
        Only {
            wanted: row.columns.stacked

            Label {
                width: words.width
                role: Label.Role.Small
                text: row.rate + " · " + row.month
                color: Theme.textSecond
                wrapMode: Text.Wrap
            }
        }
        Only {
            wanted: row.note.length > 0

            Row {
                spacing: 6

                Spinner {
                    visible: row.working
                    anchors.verticalCenter: parent.verticalCenter
                    size: Theme.scaled(12)
                }
                Label {
                    id: note
                    width: Math.min(implicitWidth, row.columns.nameWidth - Theme.space12 - (row.working ? Theme.scaled(12) + 6 : 0))
                    role: Label.Role.Small
                    text: row.note
                    color: Theme.textSecond
                    elide: Text.ElideRight

                    HoverHandler { id: over }
                    Hint {
                        text: row.note
                        wanted: over.hovered && note.truncated
                    }
                }
            }
        }
    }

    component Cell: Label {
        anchors.verticalCenter: parent?.verticalCenter
        color: Theme.textSecond
        horizontalAlignment: Text.AlignRight
        elide: Text.ElideRight
        Accessible.ignored: true
    }

    Item {
        width: row.width
        height: row.line

        Cell {
            visible: !row.columns.stacked
            x: row.columns.rate
            width: row.columns.rateWidth
            text: row.rate
        }
        Cell {
            visible: !row.columns.stacked
            x: row.columns.month
            width: row.columns.width
            text: row.month
        }
        Cell {
            x: row.columns.used
            width: row.columns.width
            text: row.used
            color: Theme.text
        }
        Cell {
            visible: !toggle.visible
            x: row.columns.keep
            width: row.columns.keepWidth
            text: row.keep ? "—" : qsTr("Yes")
        }
        Switch {
            id: toggle
            visible: row.keep !== null && row.keep.known
            x: row.columns.keep + row.columns.keepWidth - width
            anchors.verticalCenter: parent.verticalCenter
            working: row.keep !== null && row.keep.writing
            on: row.keep !== null && row.keep.on
            text: row.label
            description: row.note.length > 0 ? row.note : qsTr("Save?")
            onClicked: row.toggled(!toggle.on)
        }
    }
    RefusalLine {
        id: told
        x: Theme.cardPadding
        y: row.line - Theme.space4
        width: row.width - 2 * x
        text: row.refusal
    }
}
