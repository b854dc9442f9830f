pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowOnboarding

// What a screen is about: what has been achieved, its title and its paragraphs.
Column {
    id: head

    required property JourneyRoot root
    property int titleRole: Label.Role.Title
    // What matters on the screen stands below, and the first paragraph is as quiet as the others.
    property bool quiet: false

    Label {
        visible: text.length > 0
        bottomPadding: Theme.space4 - lead
        role: Label.Role.Eyebrow
        text: head.root.eyebrow.toUpperCase()
        color: Theme.textSecond
        Accessible.name: head.root.eyebrow
    }
    DoneLine {
        visible: text.length > 0
        width: parent.width
        text: head.root.doneLine
    }
    Gap {
        visible: head.root.doneLine.length > 0
        size: 6
    }
    Label {
        width: parent.width
        visible: text.length > 0
        role: head.titleRole
        text: head.root.title
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
        Accessible.role: Accessible.Heading
    }
    Repeater {
        model: head.root.paragraphs

        delegate: Item {
            id: paragraph

            required property int index
            required property string modelData

            width: head.width
            height: words.y + words.height

            Label {
                id: words
                y: head.titleRole === Label.Role.Display ? (paragraph.index === 0 ? Theme.space16 : Theme.space12) : Theme.space8
                width: parent.width
                line: Theme.scaled(21)
                text: paragraph.modelData
                color: paragraph.index === 0 && !head.quiet ? Theme.text : Theme.textSecond
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignLeft
            }
        }
    }
}
