pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowEditorRules

// The sheet in which a new rule is written.
Sheet {
    id: composer

    required property RuleComposerModel model

    title: composer.model.title
    open: composer.model.open
    onEscaped: composer.model.cancel()

    // The arrows walk the choices, and pick as they go.
    function choose(choice: int): void {
        const row = choices.itemAt(choice);
        if (row === null)
            return;
        // In this order: what has the focus cannot cease to be a stop of Tab.
        row.forceActiveFocus(Qt.TabFocusReason);
        composer.model.picked = choice;
    }

    Label {
        role: Label.Role.Caption
        text: qsTr("The rule — one terse line")
        color: Theme.textSecond
        bottomPadding: 4
        Accessible.ignored: true
    }
    Field {
        width: parent.width
        focus: true
        value: composer.model.text
        readOnly: composer.model.busy
        Accessible.name: qsTr("The rule — one terse line")
        onTyped: text => composer.model.text = text
        onAccepted: composer.model.save()
    }
    Item {
        width: 1
        height: Theme.space16
    }
    Label {
        role: Label.Role.Caption
        text: qsTr("Why — one line, required (fetchable, never injected)")
        color: Theme.textSecond
        bottomPadding: 4
        Accessible.ignored: true
    }
    Field {
        width: parent.width
        value: composer.model.why
        readOnly: composer.model.busy
        Accessible.name: qsTr("Why — one line, required (fetchable, never injected)")
        onTyped: text => composer.model.why = text
        onAccepted: composer.model.save()
    }
    Item {
        width: 1
        height: Theme.space16
    }
    Label {
        role: Label.Role.Caption
        text: qsTr("Where this rule is delivered")
        color: Theme.textSecond
        bottomPadding: 4
        Accessible.ignored: true
    }
    Column {
        id: places
        width: parent.width

        Accessible.role: Accessible.Grouping
        Accessible.name: qsTr("Where this rule is delivered")

        Repeater {
            id: choices
            model: composer.model.choices

            ChoiceRow {
                id: choice

                required property string modelData
                required property int index

                width: places.width
                text: choice.modelData
                on: composer.model.picked === choice.index
                tabStop: choice.on || (composer.model.picked < 0 && choice.index === 0)
                enabled: !composer.model.busy || choice.on
                onClicked: composer.model.picked = choice.index
                Keys.onUpPressed: composer.choose(choice.index - 1)
                Keys.onDownPressed: composer.choose(choice.index + 1)
            }
        }
        Field {
            x: Theme.iconSize + 12
            width: places.width - x
            prompt: qsTr("one lowercase word")
            value: composer.model.newName
            readOnly: composer.model.busy
            failing: composer.model.nameFault.length > 0
            Accessible.name: qsTr("Name of the new rules module")
            onTyped: text => composer.model.newName = text
            onAccepted: composer.model.save()
        }
        Label {
            x: Theme.iconSize + 12
            width: places.width - x
            visible: composer.model.nameFault.length > 0
            topPadding: 6
            role: Label.Role.Small
            text: composer.model.nameFault
            color: Theme.refusal
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignLeft
        }
    }
    Item {
        width: 1
        height: Theme.space16
        visible: refusal.visible
    }
    Strip {
        id: refusal
        width: parent.width
        height: implicitHeight
        visible: composer.model.refusal.length > 0
        tone: Strip.Tone.Refusal
        text: composer.model.refusal
    }

    buttons: [
        Button {
            text: qsTr("Cancel")
            onClicked: composer.model.cancel()
        },
        Button {
            kind: Button.Kind.Primary
            text: qsTr("Add rule")
            busy: composer.model.busy
            enabled: composer.model.canSave && !composer.model.busy
            onClicked: composer.model.save()
        }
    ]
}
