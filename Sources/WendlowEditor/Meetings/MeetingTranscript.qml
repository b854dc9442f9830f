pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditorFloor
import WendlowEditorMeetings

// What was said in a meeting. Tab goes from line to line, and Return deletes the line that it is at; the page
// keys, Home, End and the wheel move through the lines.
Overlay {
    id: transcript

    required property MeetingsFaceModel face

    name: transcript.face.openTitle
    open: transcript.face.modal
    onEscaped: transcript.face.dismiss()

    FocusScope {
        anchors.fill: parent
        focus: true

        // What lies behind hears no arrow.
        Keys.onPressed: event => event.accepted = [Qt.Key_Up, Qt.Key_Down, Qt.Key_Left, Qt.Key_Right].includes(event.key) || lines.move(event.key)

        Column {
            id: head
            x: Theme.space24
            y: 20
            width: close.x - x - Theme.space16

            Label {
                id: title
                width: parent.width
                role: Label.Role.Title
                text: transcript.face.openTitle
                elide: Text.ElideRight
                horizontalAlignment: Text.AlignLeft
                Accessible.role: Accessible.Heading

                HoverHandler { id: titlePointer }
                Hint {
                    text: title.text
                    leading: true
                    wanted: titlePointer.hovered && title.truncated
                }
            }
            Label {
                width: parent.width
                topPadding: lead + 2
                role: Label.Role.Small
                text: transcript.face.openSpan
                visible: text.length > 0
                color: Theme.textSecond
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignLeft
            }
            Label {
                id: who
                width: parent.width
                role: Label.Role.Small
                text: transcript.face.openWho
                color: Theme.textSecond
                elide: Text.ElideRight
                horizontalAlignment: Text.AlignLeft

                HoverHandler { id: whoPointer }
                Hint {
                    text: who.text
                    leading: true
                    wanted: whoPointer.hovered && who.truncated
                }
            }
        }
        IconButton {
            id: close
            x: parent.width - width - Theme.space16
            y: 20
            iconName: "x"
            text: qsTr("Close")
            tip: ""
            onClicked: transcript.face.dismiss()
            KeyNavigation.tab: lines
            KeyNavigation.backtab: lines
        }
        Hairline {
            id: line
            x: 1
            anchors.top: head.bottom
            anchors.topMargin: Theme.space16
            width: parent.width - 2
        }
        Item {
            id: notice
            anchors.top: line.bottom
            width: parent.width
            height: strip.visible ? strip.height + Theme.space12 : 0

            Strip {
                id: strip
                x: Theme.space24
                y: Theme.space12
                width: parent.width - 2 * x
                height: implicitHeight
                visible: transcript.face.transcriptError.length > 0
                tone: Strip.Tone.Warning
                text: transcript.face.transcriptError
            }
        }
        StageWords {
            anchors.centerIn: lines
            width: parent.width - 2 * Theme.space48
            busy: transcript.face.readingTranscript
            iconName: transcript.face.readingTranscript ? "" : "doc"
            text: transcript.face.transcriptWords
        }
        TranscriptList {
            id: lines
            anchors.top: notice.bottom
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 1
            width: parent.width
            focus: true
            face: transcript.face
            leave: close
            Accessible.name: qsTr("Transcript of %1").arg(transcript.face.openTitle)
        }
        FocusRing {
            anchors.fill: lines
            anchors.margins: 6
            inside: true
            shown: lines.activeFocus && lines.currentIndex < 0 && LastInput.byKey
        }
    }
}
