import QtQuick
import QtQuick.Templates as T
import WendlowControls

// A hit of the search, and above the first of its kind what it is.
Item {
    id: row

    required property int index
    required property string section
    required property string title
    required property string titleMarkup
    required property string subtitle
    required property string subtitleMarkup
    required property string tip
    required property string symbol
    required property bool chosen
    required property bool ringed

    readonly property bool twoLines: row.subtitle.length > 0
    readonly property bool tinted: row.chosen || hit.hovered

    signal opened

    implicitHeight: hit.y + hit.height

    Label {
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
        y: row.section.length > 0 ? 32 : 0
        width: parent.width
        height: row.twoLines ? 44 : 36
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
                x: 12
                anchors.verticalCenter: parent.verticalCenter
                name: row.symbol
                color: row.chosen ? Theme.accent : row.tinted ? Theme.textSecondOnTint : Theme.textSecond
            }
            Label {
                id: words
                x: 40
                y: row.twoLines ? 4 : 8
                width: parent.width - x - 12
                text: row.titleMarkup
                textFormat: Text.StyledText
                elide: Text.ElideRight
                maximumLineCount: 1
                horizontalAlignment: Text.AlignLeft
                Accessible.ignored: true
            }
            Label {
                x: 40
                y: 23
                width: parent.width - x - 12
                visible: row.twoLines
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
        Hint {
            anchors.leftMargin: words.x
            leading: true
            text: row.tip
            wanted: hit.hovered && words.truncated
        }
    }
}
