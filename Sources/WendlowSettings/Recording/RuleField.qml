import QtQuick
import WendlowControls
import WendlowSettings

// Where a site, a word or a topic is typed.
Item {
    id: form

    required property RuleGroup group

    // It has the focus from its beginning.
    required property bool taking

    // Too little would be left for the words beside them.
    readonly property bool stacked: form.width - buttons.width < Theme.scaled(140)

    signal ended

    implicitHeight: buttons.y + buttons.height + (told.visible ? told.height + 6 : 0) + Theme.space8

    Component.onCompleted: if (form.taking)
        field.forceActiveFocus(LastInput.reason)
    Keys.onEscapePressed: form.leave()

    function leave(): void {
        form.group.cancel();
        form.ended();
    }

    Field {
        id: field
        width: form.stacked ? form.width : form.width - buttons.width - Theme.space8
        height: Theme.smallButtonHeight
        value: form.group.typed
        prompt: form.group.hint
        readOnly: form.group.busy
        failing: form.group.note.length > 0
        Accessible.name: form.group.addWords
        onTyped: text => form.group.typed = text
        onAccepted: form.group.commit()
    }
    Row {
        id: buttons
        x: form.stacked ? 0 : form.width - width
        y: form.stacked ? field.height + Theme.space8 : 0
        spacing: Theme.space4

        Button {
            small: true
            working: form.group.busy
            text: form.group.addWords
            onClicked: form.group.commit()
        }
        Button {
            kind: Button.Kind.Quiet
            small: true
            text: qsTr("Cancel")
            onClicked: form.leave()
        }
    }
    RefusalLine {
        id: told
        y: buttons.y + buttons.height + 6
        width: form.width
        text: form.group.note
    }
}
