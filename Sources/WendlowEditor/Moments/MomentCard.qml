import QtQuick
import WendlowControls

// A session of an AI tool in words, on a card of any height: as much of them as there is room for.
Item {
    id: card

    required property string badge
    required property string title
    required property string body
    required property string files
    // Of what stands at the right of the badge.
    property int clockWidth: 0

    readonly property int small: Theme.lines[Label.Role.Small]
    readonly property int room: foot.y - words.y - 4
    readonly property bool cut: heading.truncated || foot.truncated

    Icon {
        x: 15
        y: 13 + Math.round((card.small - 14) / 2)
        size: 14
        name: "terminal"
        color: Theme.textSecond
    }
    Label {
        x: 35
        y: 13
        width: parent.width - x - card.clockWidth - 23
        role: Label.Role.Caption
        line: card.small
        text: card.badge
        color: Theme.textSecond
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    Label {
        id: heading
        x: 15
        y: 13 + card.small + 5
        width: parent.width - 30
        role: Label.Role.Strong
        text: card.title
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    Label {
        id: words
        x: 15
        y: heading.y + Theme.lines[Label.Role.Strong]
        width: parent.width - 30
        role: Label.Role.Small
        text: card.body
        color: Theme.textSecond
        wrapMode: Text.Wrap
        maximumLineCount: Math.max(1, Math.floor(card.room / card.small))
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    Label {
        id: foot
        x: 15
        y: parent.height - 13 - (card.files.length > 0 ? Theme.lines[Label.Role.Fine] : -4)
        width: parent.width - 30
        role: Label.Role.Fine
        text: card.files
        color: Theme.textSecond
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
}
