import QtQuick
import WendlowControls
import WendlowEditorScopes

// What became of the last script, and what a person does with it next.
Strip {
    id: strip

    required property ScopesFaceModel face

    readonly property bool written: strip.face.scriptPath.length > 0

    height: implicitHeight
    tone: strip.written ? Strip.Tone.Information : Strip.Tone.Warning
    text: strip.face.script

    function copyPath(): void {
        if (!Clipboard.copy(strip.face.scriptPath))
            return;
        copied.restart();
        Speech.say(qsTr("Copied"));
    }

    Timer {
        id: copied
        interval: 1500
    }
    Item {
        visible: strip.written
        width: parent.width
        height: buttons.height

        Row {
            id: buttons
            x: -8
            y: 2

            Button {
                kind: Button.Kind.Quiet
                small: true
                text: copied.running ? qsTr("Copied") : qsTr("Copy path")
                onClicked: strip.copyPath()
            }
            Button {
                kind: Button.Kind.Quiet
                small: true
                text: qsTr("Open folder")
                onClicked: strip.face.openFolder()
            }
        }
    }
    Label {
        width: parent.width
        visible: strip.face.folderFault.length > 0
        topPadding: 4
        role: Label.Role.Small
        line: Theme.hintLine
        text: strip.face.folderFault
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
    }
}
