pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowEditorFloor
import WendlowEditorMemories

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
    required property bool missing

    required property bool twoLines
    required property int indent
    required property bool chosen
    required property bool ringed
    // The pointer is at another row, which speaks for itself.
    required property bool outdone
    required property bool underlined

    readonly property bool tinted: row.chosen || row.open || row.hovered
    readonly property int textX: 12 + row.indent
    readonly property int lineHeight: row.head ? 8 + Theme.scaled(40) : Theme.scaled(row.twoLines ? 56 : 40)
    // Opened, and what it has to say is there: then the row is the whole memory, from its title on.
    readonly property bool unfolded: row.open && !row.head && row.known

    // Just copied, and says so for a moment.
    property bool copied: false

    // Why and body are needed, or needed anew.
    signal wanted
    // What there is to do with it, at this point.
    signal menuAsked(point at)

    implicitHeight: Math.max(row.lineHeight, opened.tall > 0 ? opened.begin + opened.tall : 0)
    hoverEnabled: true
    focusPolicy: Qt.NoFocus
    text: row.title

    Accessible.name: row.head ? qsTr("%1, %2").arg(row.title).arg(row.count) : row.title
    Accessible.description: row.head ? "" : row.subline.length > 0 ? row.subline + ", " + row.day : row.day
    // Its own, for a button tells a screen reader these, whatever is attached to it.
    checkable: true
    checked: row.open
    Accessible.selectable: true
    Accessible.selected: row.chosen
    Accessible.onPressAction: row.clicked()
    Component.onCompleted: if (!row.head)
        row.wanted()
    onStaleChanged: if (row.stale)
        row.wanted()

    // The menu bar would take it for the text that has the focus, and there is none.
    Keys.onShortcutOverride: event => event.accepted = Shortcuts.isPressed(Shortcuts.CopyMemory, event.key, event.modifiers)

    TapHandler {
        acceptedButtons: Qt.RightButton
        gesturePolicy: TapHandler.WithinBounds
        onTapped: point => row.menuAsked(point.position)
    }

    background: Item {
        Rectangle {
            // Over the line of the row above.
            y: row.head ? 8 : row.index === 0 ? 0 : -1
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
            y: 8 + Math.round((row.lineHeight - 8 - height) / 2)
            size: Theme.iconSize
            name: row.open ? "down" : "right"
            color: Theme.textSecondOnTint
        }
        // That a memory opens is shown where somebody is about to open it.
        Icon {
            visible: !row.head && row.tinted
            x: row.textX - 12
            y: words.y + Math.round((words.line - height) / 2)
            size: 12
            name: row.open ? "down" : "right"
            color: Theme.textSecondOnTint
        }
        Label {
            id: words
            x: row.textX
            y: row.head ? 8 + Theme.scaled(10) : Theme.scaled(row.twoLines ? 9 : 10)
            width: row.head ? parent.width - x - number.width - 20 : date.x - x - 16
            role: row.head ? Label.Role.Strong : Label.Role.Body
            text: row.head ? row.title : row.unfolded && row.tip !== row.title ? row.tip : row.titleMarkup
            textFormat: text === row.titleMarkup ? Text.StyledText : Text.PlainText
            elide: Text.ElideRight
            wrapMode: row.unfolded ? Text.Wrap : Text.NoWrap
            maximumLineCount: row.unfolded ? 40 : 1
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
        }
        Label {
            id: number
            visible: row.head
            // By what it has drawn: a width that asked for its own implicit one would go in circles.
            x: words.x + Math.ceil(words.contentWidth) + 8
            y: 8 + Theme.scaled(12)
            role: Label.Role.Small
            text: row.count
            color: row.hovered ? Theme.textSecondOnTint : Theme.textSecond
            Accessible.ignored: true
        }
        Label {
            id: second
            visible: row.twoLines && !row.head && !row.unfolded
            x: row.textX
            y: Theme.scaled(30)
            width: words.width
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
            visible: !row.copied
            text: row.day
            color: row.tinted ? Theme.textSecondOnTint : Theme.textSecond
            Accessible.ignored: true
        }
        Label {
            x: parent.width - width - 12
            y: date.y
            visible: row.copied
            role: Label.Role.Small
            text: qsTr("Copied")
            color: Theme.accent
            Accessible.ignored: true
        }
        // Made when it is wanted: hardly any row is ever opened.
        Only {
            id: opened

            readonly property real tall: opened.count > 0 ? opened.itemAt(0)?.height ?? 0 : 0
            // In place of the second line, so that opening moves no word of the two.
            readonly property real begin: row.unfolded ? words.y + words.height + (row.twoLines ? 0 : 4) : row.lineHeight

            wanted: row.open && !row.head

            Column {
                x: row.textX
                y: opened.begin
                width: date.x - x - 16
                bottomPadding: 16
                spacing: 8

                SelectableText {
                    visible: row.why.length > 0
                    width: parent.width
                    role: Label.Role.Small
                    line: Theme.hintLine
                    markup: row.why
                    spoken: qsTr("Why: %1").arg(row.whyText)
                    color: Theme.textSecondOnTint
                }
                SelectableText {
                    visible: row.body.length > 0
                    width: parent.width
                    markup: row.body
                    spoken: row.bodyText
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
                Label {
                    visible: row.missing
                    width: parent.width
                    role: Label.Role.Small
                    text: qsTr("The rest of this memory could not be read. Open it again to ask once more.")
                    color: Theme.textSecondOnTint
                    wrapMode: Text.Wrap
                    horizontalAlignment: Text.AlignLeft
                }
                QuietProgress {
                    visible: running
                    running: !row.known && !row.missing
                }
            }
        }
    }

    Hint {
        anchors.leftMargin: row.textX
        leading: true
        text: row.tip
        wanted: (row.hovered || row.ringed && !row.outdone) && words.truncated && !row.open
    }
}
