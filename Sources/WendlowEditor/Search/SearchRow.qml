pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls

// A hit of the search, and above the first of its kind what it is. One whose face is still to come opens
// where it stands.
FocusScope {
    id: row

    required property int index
    required property string section
    required property string title
    required property string titleMarkup
    required property string subtitle
    required property string subtitleMarkup
    required property string tip
    required property string symbol
    required property string unfolded
    required property string unfoldedText
    required property bool chosen
    required property bool ringed

    readonly property bool twoLines: row.subtitle.length > 0
    readonly property bool tinted: row.chosen || hit.hovered

    signal opened

    readonly property bool open: row.unfolded.length > 0

    implicitHeight: hit.y + hit.height

    Label {
        id: kind
        visible: row.section.length > 0
        x: 12
        y: 14
        width: parent.width - 24
        role: Label.Role.GroupTitle
        text: row.section
        color: Theme.textSecond
        elide: Text.ElideRight
        Accessible.role: Accessible.Heading
    }

    T.ItemDelegate {
        id: hit
        y: row.section.length > 0 ? kind.y + kind.height + 2 : 0
        width: parent.width
        height: row.open ? opened.tall + 20 : Theme.scaled(row.twoLines ? 44 : 36)
        focus: true
        hoverEnabled: true
        focusPolicy: Qt.NoFocus
        text: row.title

        Accessible.name: row.title
        Accessible.description: row.subtitle
        Accessible.selectable: true
        Accessible.selected: row.chosen
        Accessible.onPressAction: row.opened()
        onClicked: row.opened()

        background: Rectangle {
            radius: Theme.radiusButton
            color: row.chosen ? Theme.accentSoft : "transparent"

            HoverFill {
                anchors.fill: parent
                radius: Theme.radiusButton
                lit: hit.hovered && !row.chosen || hit.down
                shade: hit.down ? Theme.pressed : Theme.hover
            }
            FocusRing {
                shown: row.ringed
                inside: true
            }
        }
        Item {
            anchors.fill: parent

            Icon {
                id: sign
                x: 12
                y: Theme.scaled(row.twoLines ? 14 : 10)
                size: Theme.iconSize
                name: row.symbol
                color: row.chosen ? Theme.accent : row.tinted ? Theme.textSecondOnTint : Theme.textSecond
            }
            Label {
                id: words
                x: sign.x + sign.size + 12
                y: Theme.scaled(row.twoLines ? 4 : 8)
                width: parent.width - x - 32
                visible: !row.open
                text: row.titleMarkup
                textFormat: Text.StyledText
                elide: Text.ElideRight
                maximumLineCount: 1
                horizontalAlignment: Text.AlignLeft
                Accessible.ignored: true
            }
            Label {
                x: words.x
                y: Theme.scaled(23)
                width: parent.width - x - 32
                visible: row.twoLines && !row.open
                role: Label.Role.Small
                text: row.subtitleMarkup
                textFormat: Text.StyledText
                color: row.tinted ? Theme.textSecondOnTint : Theme.textSecond
                elide: Text.ElideRight
                maximumLineCount: 1
                horizontalAlignment: Text.AlignLeft
                Accessible.ignored: true
            }
        }
        // Made when it is wanted: a row is to come quickly.
        Only {
            id: opened

            readonly property real tall: opened.count > 0 ? opened.itemAt(0)?.height ?? 0 : 0

            wanted: row.open

            SelectableText {
                x: words.x
                y: words.y
                width: hit.width - x - 32
                markup: row.unfolded
                spoken: row.unfoldedText
            }
        }
        // Where there is more behind it, that is shown under the pointer and at the selection.
        Icon {
            x: parent.width - 12 - width
            y: Theme.scaled(row.twoLines ? 22 : 18) - 6
            visible: row.tinted
            size: 12
            name: row.open ? "down" : "right"
            color: Theme.textSecondOnTint
        }
        Hint {
            anchors.leftMargin: words.x
            leading: true
            text: row.tip
            wanted: (hit.hovered || row.ringed) && words.truncated && !row.open
        }
    }
}
