pragma ComponentBehavior: Bound

import QtQuick
import WendlowEditorFloor

// The page of one face, made when the face is first opened and kept behind the others.
Loader {
    id: slot

    required property var modelData
    required property int margin
    required property int column
    required property Item over
    required property bool trying
    required property string waitingWords

    readonly property FaceModel face: slot.modelData as FaceModel
    readonly property FacePage page: slot.item as FacePage
    readonly property Item first: slot.page?.first ?? null

    signal triedAgain
    signal steppedBack

    function make(): void {
        if (slot.face.open && slot.item === null)
            slot.setSource(slot.face.page, {
                face: slot.face,
                margin: slot.margin,
                column: slot.column,
                over: slot.over
            });
    }

    visible: slot.face.open
    Component.onCompleted: slot.make()

    Connections {
        target: slot.face
        function onOpenChanged(): void {
            slot.make();
        }
    }
    Connections {
        target: slot.page
        function onTriedAgain(): void {
            slot.triedAgain();
        }
        function onSteppedBack(): void {
            slot.steppedBack();
        }
    }
    Binding {
        target: slot.page
        property: "margin"
        value: slot.margin
    }
    Binding {
        target: slot.page
        property: "column"
        value: slot.column
    }
    Binding {
        target: slot.page
        property: "trying"
        value: slot.trying
    }
    Binding {
        target: slot.page
        property: "waitingWords"
        value: slot.waitingWords
    }
}
