import QtQuick
import QtQuick.Templates as T
import WendlowControls

// What was found or done, and the file it concerns: the path on the left, the sentence beside it. The path
// is a button that copies the whole of it.
Item {
    id: note

    required property string sentence
    required property string subject
    required property string shownSubject
    // Where in the file the sentence points; empty: nowhere.
    property string place

    signal copied

    // Too narrow for two columns, the sentence stands below its path.
    readonly property bool stacked: note.width < Theme.scaled(360)

    implicitHeight: words.y + words.height + (where.visible ? where.height : 0) + 3

    Accessible.role: Accessible.ListItem
    Accessible.name: note.sentence
    Accessible.description: where.visible ? note.subject + ", " + note.place : note.subject

    T.AbstractButton {
        id: path

        property bool lit: path.hovered || path.visualFocus

        visible: note.subject.length > 0
        y: 0
        width: note.stacked ? note.width : Theme.scaled(168)
        height: Theme.scaled(22)
        text: note.subject
        rightPadding: sign.size - 2
        hoverEnabled: true
        focusPolicy: Qt.StrongFocus
        onClicked: {
            note.copied();
            lately.restart();
        }

        Accessible.role: Accessible.Button
        Accessible.name: qsTr("Copy %1").arg(note.subject)
        Accessible.onPressAction: if (path.enabled)
        path.clicked()
        Keys.onReturnPressed: path.clicked()
        Keys.onEnterPressed: path.clicked()

        contentItem: Label {
            role: Label.Role.Small
            text: note.shownSubject
            color: path.lit ? Theme.text : Theme.textSecond
            elide: Text.ElideMiddle
            verticalAlignment: Text.AlignVCenter
            Accessible.ignored: true
        }
        background: Item {
            FocusRing {
                shown: path.visualFocus
                around: 4
            }
        }

        Icon {
            id: sign
            visible: path.lit || lately.running
            x: path.width - size - 1
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.scaled(14)
            name: lately.running ? "check" : "copy"
            color: lately.running ? Theme.accent : Theme.text
        }
        Timer {
            id: lately
            interval: 1500
        }
        Hint {
            text: note.subject
            wanted: path.lit && (path.contentItem as Label).truncated
        }
    }
    Label {
        id: words
        x: path.visible && !note.stacked ? path.width + 4 : 0
        y: path.visible && note.stacked ? Theme.scaled(20) : Theme.scaled(3)
        width: note.width - x
        role: Label.Role.Small
        text: note.sentence
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
    Label {
        id: where
        visible: note.place.length > 0
        x: words.x
        y: words.y + words.height
        width: words.width
        role: Label.Role.Small
        text: note.place
        color: Theme.textSecond
        wrapMode: Text.Wrap
    }
}
