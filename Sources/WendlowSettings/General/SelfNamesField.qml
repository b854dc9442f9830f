import QtQuick
import WendlowControls
import WendlowSettings

// The names under which a person speaks in meetings.
Column {
    id: block

    required property PrivacyModel model

    function save(): void {
        block.model.saveSelfNames(field.text);
    }

    Label {
        width: block.width
        role: Label.Role.Section
        text: qsTr("Your name in meeting apps")
        Accessible.role: Accessible.Heading
    }
    Item {
        width: 1
        height: Theme.sectionBelow
    }
    Item {
        width: block.width
        height: field.height

        Field {
            id: field
            width: parent.width - (save.visible ? save.width + Theme.space8 : 0)
            value: block.model.names
            prompt: qsTr("As your meeting apps show them")
            readOnly: block.model.savingNames
            failing: block.model.selfNamesRefusal.length > 0
            Accessible.name: qsTr("Your name in meeting apps")
            onTyped: text => block.model.names = text
            onAccepted: block.save()
        }
        Button {
            id: save
            visible: block.model.namesCanBeSaved || block.model.savingNames
            anchors.right: parent.right
            kind: Button.Kind.Primary
            working: block.model.savingNames
            text: qsTr("Save")
            hint: qsTr("Your name in meeting apps")
            onClicked: block.save()
            // What had the focus and has gone leaves it where the names are.
            onVisibleChanged: if (!save.visible && save.activeFocus)
                field.forceActiveFocus(LastInput.reason)
        }
    }
    Item {
        width: 1
        height: 6
    }
    RefusalLine {
        width: block.width
        text: block.model.selfNamesRefusal
    }
    Item {
        visible: block.model.selfNamesRefusal.length > 0
        width: 1
        height: 6
    }
    Label {
        width: Math.min(block.width, Theme.scaled(620))
        role: Label.Role.Small
        text: qsTr("Wendlow uses the name shown on screen to tell which speaker is you. Add the exact name each meeting app shows for you, separated by commas. Include every version you use.")
        color: Theme.textSecond
        wrapMode: Text.Wrap
    }
}
