import QtQuick
import WendlowControls

// A field of a sheet below its label.
FocusScope {
    id: line

    required property string label
    property alias value: field.value
    property alias failing: field.failing
    property alias readOnly: field.readOnly

    signal typed(string text)
    signal accepted

    implicitHeight: caption.height + field.height

    Label {
        id: caption
        role: Label.Role.Caption
        text: line.label
        color: Theme.textSecond
        bottomPadding: 4
        Accessible.ignored: true
    }
    Field {
        id: field
        y: caption.height
        width: parent.width
        focus: true
        Accessible.name: line.label
        onTyped: text => line.typed(text)
        onAccepted: line.accepted()
    }
}
