import QtQuick
import WendlowControls
import WendlowSettings

// Where a phrase is given back.
Column {
    id: form

    required property RecoveryModel model

    // Too narrow for both, the button stands below the field.
    readonly property bool stacked: form.width < Theme.scaled(480)

    // The words have done what they are for, and no undoing brings them back.
    readonly property bool accepted: form.model.accepted.length > 0
    onAcceptedChanged: if (form.accepted)
        field.text = ""

    function unlock(): void {
        form.model.unlock(field.text);
    }

    Label {
        width: form.width
        role: Label.Role.Section
        text: form.model.restoreHeader
        Accessible.role: Accessible.Heading
    }
    Item {
        width: 1
        height: Theme.sectionBelow
    }
    Item {
        width: form.width
        height: unlock.y + unlock.height

        Field {
            id: field
            width: form.stacked ? form.width : form.width - unlock.width - Theme.space8
            prompt: form.model.restorePrompt
            readOnly: form.model.restoring
            failing: form.model.refusal.length > 0
            // Neither learned nor corrected by what helps with typing.
            inputMethodHints: Qt.ImhSensitiveData | Qt.ImhNoPredictiveText | Qt.ImhNoAutoUppercase
            Accessible.name: form.model.restoreHeader
            onAccepted: form.unlock()
        }
        Button {
            id: unlock
            x: form.stacked ? 0 : form.width - width
            y: form.stacked ? field.height + Theme.space8 : 0
            text: form.model.restoreButton
            working: form.model.restoring
            onClicked: form.unlock()
        }
    }
    Item {
        visible: told.visible
        width: 1
        height: 10
    }
    Strip {
        id: told
        visible: told.text.length > 0
        width: form.width
        tone: form.model.refusal.length > 0 ? Strip.Tone.Refusal : Strip.Tone.Information
        text: form.model.refusal + form.model.accepted + form.model.restoreProgress
        sign: form.model.restoring ? "clock" : form.model.refusal.length > 0 ? "refuse" : "ok"
    }
    Item {
        width: 1
        height: 10
    }
    Label {
        width: form.width
        role: Label.Role.Small
        text: form.model.restoreFooter
        color: Theme.textSecond
        wrapMode: Text.Wrap
    }
}
