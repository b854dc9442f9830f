import QtQuick
import WendlowControls

// What is being waited for, or that it has come. Where there is nothing to press meanwhile, it has the focus.
Item {
    id: status

    required property string text
    property bool done: false
    property bool stop: false

    readonly property string words: status.text.replace(/^✓\s*/, "")

    implicitWidth: sign.width + Theme.space8 + label.implicitWidth
    implicitHeight: Theme.buttonHeight
    activeFocusOnTab: status.stop

    Accessible.role: Accessible.StaticText
    Accessible.name: status.words
    Accessible.focusable: status.stop

    Item {
        id: sign
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.scaled(14)
        height: width

        Spinner {
            visible: !status.done
            size: parent.width
        }
        Icon {
            visible: status.done
            size: parent.width
            name: "tick"
            color: Theme.accent
        }
    }
    Label {
        id: label
        x: sign.width + Theme.space8
        width: parent.width - x
        anchors.verticalCenter: parent.verticalCenter
        role: status.done ? Label.Role.SmallStrong : Label.Role.Small
        text: status.words
        color: status.done ? Theme.accent : Theme.textSecond
        wrapMode: Text.Wrap
        maximumLineCount: 2
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
    }
    FocusRing {
        shown: status.activeFocus && LastInput.byKey
    }
}
