import QtQuick
import WendlowControls
import WendlowOnboarding

// The download goes on, and how a person stops it.
Sheet {
    id: sheet

    required property JourneyRoot root

    title: sheet.root.cancelFailedTitle
    open: sheet.root.cancelFailed
    onEscaped: sheet.root.closeCancelFailed()

    Label {
        width: parent.width
        text: sheet.root.cancelFailedBody
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
    }

    buttons: Button {
        kind: Button.Kind.Primary
        text: sheet.root.cancelFailedButton
        focus: true
        onClicked: sheet.root.closeCancelFailed()
    }
}
