pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowOnboarding

// Whether everything is to be taken back: what goes and what stays, line by line. Once that is under way the sheet
// stays, for what it shows ends with the application.
Sheet {
    id: sheet

    required property JourneyRoot root

    title: sheet.root.confirmTitle
    open: sheet.root.confirming && !sheet.root.cancelFailed
    onEscaped: sheet.root.keepGoing()

    Connections {
        target: sheet.root
        function onCancelChanged(): void {
            if (sheet.root.cancelling && sheet.open)
                progress.forceActiveFocus(LastInput.reason);
        }
    }

    Label {
        width: parent.width
        text: sheet.root.confirmBody
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
    }
    CancelLines {
        width: parent.width
        title: sheet.root.confirmRemovesTitle
        lines: sheet.root.confirmRemoves
    }
    CancelLines {
        width: parent.width
        title: sheet.root.confirmKeepsTitle
        lines: sheet.root.confirmKeeps
    }
    Gap {
        visible: progress.visible
        size: Theme.space8
    }
    StatusLine {
        id: progress
        visible: sheet.root.cancelling
        width: parent.width
        stop: true
        text: sheet.root.cancellingWords
    }

    buttons: [
        Button {
            text: sheet.root.confirmKeepGoing
            enabled: !sheet.root.cancelling
            focus: true
            onClicked: sheet.root.keepGoing()
        },
        Button {
            kind: Button.Kind.Primary
            destructive: true
            text: sheet.root.confirmProceed
            enabled: !sheet.root.cancelling
            onClicked: sheet.root.cancelInstall()
        }
    ]
}
