pragma ComponentBehavior: Bound

import QtQuick
import WendlowControls
import WendlowSettings

// The recovery phrase of the store's key, and the way back in with it.
ScrollPage {
    id: pane

    required property RecoveryModel model

    readonly property bool narrow: pane.width < 600

    sideMargin: pane.narrow ? Theme.space24 : Theme.space48
    above: pane.narrow ? Theme.space24 : 40

    Component.onCompleted: pane.model.refresh()

    PaneHead {
        width: parent.width
        title: pane.model.title
        body: pane.model.body
    }
    Strip {
        visible: pane.model.warning.length > 0
        width: parent.width
        tone: Strip.Tone.Warning
        text: pane.model.warning
        action: qsTr("Look again")
        onActed: pane.model.refresh()
    }
    Item {
        visible: pane.model.warning.length > 0
        width: 1
        height: Theme.space24
    }
    Column {
        visible: pane.model.hasPhrase
        width: parent.width

        Label {
            width: parent.width
            role: Label.Role.Section
            text: pane.model.phraseHeader
            Accessible.role: Accessible.Heading
        }
        Item {
            width: 1
            height: Theme.sectionBelow
        }
        PhraseCard {
            width: parent.width
            model: pane.model
        }
        Item {
            width: 1
            height: Theme.space8
        }
        Label {
            width: parent.width
            role: Label.Role.Small
            text: pane.model.phraseFooter
            color: Theme.textSecond
            wrapMode: Text.Wrap
        }
        Item {
            width: 1
            height: Theme.sectionAbove
        }
        RestoreForm {
            width: parent.width
            model: pane.model
        }
    }
}
