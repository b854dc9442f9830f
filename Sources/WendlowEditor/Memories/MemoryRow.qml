pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditor

// One memory: its title and what it is for, its day; opened, its why and body. Or the head of a group.
T.ItemDelegate {
    id: row

    required property int index
    required property bool head
    required property string title
    required property string titleMarkup
    required property string subline
    required property string sublineMarkup
    required property string day
    required property string count
    required property bool open
    required property bool last
    required property string tip
    required property string facts
    required property string why
    required property string body
    required property string whyText
    required property string bodyText
    required property bool known
    required property bool stale

    required property int rowHeight
    required property int indent
    required property bool chosen
    required property bool ringed
    required property bool underlined

    readonly property bool tinted: row.chosen || row.open || row.hovered
    readonly property bool twoLines: row.rowHeight >= 56
    readonly property int textX: 12 + row.indent
    readonly property int lineHeight: row.head ? 48 : row.rowHeight

    // Why and body are needed, or needed anew.
    signal wanted

    implicitHeight: row.lineHeight + (opened.visible ? opened.height : 0)
    hoverEnabled: true
    focusPolicy: Qt.NoFocus
    text: row.title

    Accessible.name: row.head ? qsTr("%1, %2").arg(row.title).arg(row.count) : row.title
    Accessible.description: row.head ? "" : row.subline.length > 0 ? row.subline + ", " + row.day : row.day
    Accessible.checkable: true
    Accessible.checked: row.open
    Accessible.selectable: true
    Accessible.selected: row.chosen
    Accessible.onPressAction: row.clicked()
    Component.onCompleted: if (!row.head)
        row.wanted()
    onStaleChanged: if (row.stale)
        row.wanted()

    background: Item {
        Rectangle {
            // Over the line of the row above.
            y: row.head ? 8 : -1
            width: parent.width
            height: parent.height - y
            radius: Theme.radiusButton
            visible: !row.head || row.chosen || row.hovered
            color: !row.head && (row.chosen || row.open) ? Theme.accentSoft : "transparent"

            HoverFill {
                anchors.fill: parent
                radius: Theme.radiusButton
                lit: (row.hovered && !(row.chosen || row.open && !row.head)) || row.down
                shade: row.down ? Theme.pressed : Theme.hover
            }
            FocusRing {
                shown: row.ringed
                inside: true
            }
        }
        Hairline {
            visible: !row.head && row.underlined
            x: row.textX
            y: parent.height - 1
            width: parent.width - x - 12
        }
    }

    Item {
        anchors.fill: parent

        Icon {
            visible: row.head
            x: 8
            y: 8 + 12
            name: row.open ? "down" : "right"
            color: Theme.textSecondOnTint
        }
        Label {
            id: words
            x: row.textX
            y: row.head ? 18 : row.twoLines ? 9 : 10
            width: row.head ? Math.min(implicitWidth, parent.width - x - 60) : date.x - x - 16
            role: row.head ? Label.Role.Strong : Label.Role.Body
            text: row.head ? row.title : row.titleMarkup
            textFormat: row.head ? Text.PlainText : Text.StyledText
            elide: Text.ElideRight
            maximumLineCount: 1
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
        }
        Label {
            visible: row.head
            x: words.x + words.width + 8
            y: 20
            role: Label.Role.Small
            text: row.count
            color: row.hovered ? Theme.textSecondOnTint : Theme.textSecond
            Accessible.ignored: true
        }
        Label {
            id: second
            visible: row.twoLines && !row.head
            x: row.textX
            y: 30
            width: date.x - x - 16
            role: Label.Role.Small
            text: row.sublineMarkup
            textFormat: Text.StyledText
            color: row.tinted ? Theme.textSecondOnTint : Theme.textSecond
            elide: Text.ElideRight
            maximumLineCount: 1
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
        }
        Label {
            id: date
            x: parent.width - width - 12
            y: (row.lineHeight - height) / 2
            role: Label.Role.Small
            text: row.day
            color: row.tinted ? Theme.textSecondOnTint : Theme.textSecond
            Accessible.ignored: true
        }
        Column {
            id: opened
            x: row.textX
            y: row.lineHeight
            width: parent.width - x - 12
            visible: row.open && !row.head
            bottomPadding: 16
            spacing: 8

            Label {
                visible: row.tip !== row.title || words.truncated
                width: parent.width
                text: row.tip
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignLeft
            }
            Label {
                // Not twice, where the row shows all of it.
                visible: row.why.length > 0 && (row.why !== row.sublineMarkup || second.truncated || !second.visible)
                width: parent.width
                role: Label.Role.Small
                line: Theme.hintLine
                text: row.why
                textFormat: Text.StyledText
                color: Theme.textSecondOnTint
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignLeft
                Accessible.name: qsTr("Why: %1").arg(row.whyText)
            }
            Label {
                visible: row.body.length > 0
                width: parent.width
                text: row.body
                textFormat: Text.StyledText
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignLeft
                Accessible.name: row.bodyText
            }
            Label {
                visible: row.facts.length > 0
                width: parent.width
                role: Label.Role.Fine
                text: row.facts
                color: Theme.textSecondOnTint
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignLeft
            }
            QuietProgress {
                visible: !row.known
                running: opened.visible && !row.known
            }
        }
    }

    Hint {
        text: row.tip
        wanted: (row.hovered || row.ringed) && words.truncated && !row.open
    }
}
