pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditorMods

// What a run reported.
Sheet {
    id: sheet

    required property ModsFaceModel face

    title: sheet.face.reportTitle
    open: sheet.face.modal
    onEscaped: sheet.face.closeReport()

    RunTone {
        width: parent.width
        tone: sheet.face.reportTone
        text: sheet.face.reportOutcome
        Accessible.role: Accessible.StaticText
        Accessible.name: sheet.face.reportOutcome
    }
    Label {
        width: parent.width
        topPadding: lead + 4
        role: Label.Role.Small
        text: sheet.face.reportFacts
        color: Theme.textSecond
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
    }
    Item {
        width: 1
        height: Theme.space16
    }
    Strip {
        width: parent.width
        height: visible ? implicitHeight : 0
        visible: sheet.face.reportCut
        tone: Strip.Tone.Information
        sign: "cut"
        text: qsTr("Report shown in part — the full run is in its banked transcript.")
    }
    Item {
        width: 1
        height: Theme.space16
        visible: sheet.face.reportCut
    }
    LongText {
        width: parent.width
        focus: true
        tabStop: true
        said: sheet.face.report
    }

    buttons: [
        Button {
            kind: Button.Kind.Primary
            text: qsTr("Done")
            onClicked: sheet.face.closeReport()
        }
    ]
}
