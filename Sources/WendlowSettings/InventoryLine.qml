import QtQuick
import QtQuick.Templates as T
import WendlowControls
import WendlowSettings

// One line of a table: a path, what is known of it, and its day. Pressed, it copies the whole path.
T.AbstractButton {
    id: entry

    required property int index
    required property string path
    required property string shownPath
    required property string facts
    required property string factsHint
    required property string day
    required property string dayHint
    required property string spoken
    required property bool current
    required property bool stacked
    required property bool endsWithHairline

    readonly property bool lit: entry.hovered || entry.visualFocus
    readonly property int dayWidth: Theme.scaled(56)
    readonly property int factsWidth: Theme.scaled(130)
    readonly property int factsStart: entry.availableWidth - entry.dayWidth - Theme.space16 - entry.factsWidth

    signal picked
    signal copied

    text: entry.path
    horizontalPadding: 8
    hoverEnabled: true
    // The list is one stop for the tab key: its current line.
    focusPolicy: entry.current || entry.activeFocus ? Qt.StrongFocus : Qt.ClickFocus
    onPressed: entry.picked()
    onClicked: {
        entry.copied();
        lately.restart();
    }
    // The item goes on to stand for another line.
    ListView.onPooled: lately.stop()

    Accessible.role: Accessible.Button
    Accessible.name: qsTr("Copy %1").arg(entry.path)
    Accessible.description: entry.spoken
    Accessible.onPressAction: if (entry.enabled)
        entry.clicked()
    Keys.onReturnPressed: entry.clicked()
    Keys.onEnterPressed: entry.clicked()

    background: Item {
        Hairline {
            visible: entry.endsWithHairline
            x: entry.leftPadding
            anchors.bottom: parent.bottom
            width: entry.availableWidth
        }
        FocusRing {
            anchors.bottomMargin: 1
            inside: true
            around: 4
            shown: entry.visualFocus
        }
    }
    Item {
        x: entry.leftPadding
        width: entry.availableWidth

        Label {
            id: name
            y: Theme.scaled(4)
            width: (entry.stacked ? entry.availableWidth : entry.factsStart - Theme.space16) - (sign.visible ? sign.size + 6 : 0)
            role: Label.Role.Small
            text: entry.shownPath
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }
        Icon {
            id: sign
            visible: entry.lit || lately.running
            x: Math.min(name.implicitWidth, name.width) + 6
            y: Theme.scaled(5)
            size: Theme.scaled(14)
            name: lately.running ? "check" : "copy"
            color: lately.running ? Theme.accent : Theme.text
        }
        PathLine {
            x: entry.stacked ? 0 : entry.factsStart
            y: entry.stacked ? Theme.scaled(22) : Theme.scaled(4)
            width: entry.stacked ? when.x - Theme.space8 : when.x - x - Theme.space8
            role: Label.Role.Small
            text: entry.facts
            whole: entry.factsHint
            always: true
            color: Theme.textSecond
            Accessible.ignored: true
        }
        PathLine {
            id: when
            anchors.right: parent.right
            y: entry.stacked ? Theme.scaled(22) : Theme.scaled(4)
            role: Label.Role.Small
            text: entry.day
            whole: entry.dayHint
            always: true
            color: Theme.textSecond
            Accessible.ignored: true
        }
    }
    Timer {
        id: lately
        interval: 1500
    }
    Hint {
        text: entry.path
        wanted: entry.lit && name.truncated
    }
}
