import QtQuick
import WendlowControls
import WendlowSettings

// Whether screenshots are to be deleted. The safe answer has the focus.
Sheet {
    id: question

    required property string body

    signal confirmed
    signal cancelled

    onEscaped: question.cancelled()

    Label {
        width: parent.width
        text: question.body
        wrapMode: Text.Wrap
    }

    buttons: [
        Button {
            text: qsTr("Cancel")
            focus: true
            onClicked: question.cancelled()
        },
        Button {
            kind: Button.Kind.Primary
            destructive: true
            text: qsTr("Delete screenshots")
            onClicked: question.confirmed()
        }
    ]
}
