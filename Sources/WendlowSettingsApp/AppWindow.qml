import QtQuick
import WendlowControls

// Any window of the product: the frame with the main menu, and a stage for the kind's own content.
Window {
    id: window

    required property var mainMenu
    property Item content: null

    color: Theme.ground

    // What it showed ends.
    function empty(): void {
        if (window.content)
            window.content.destroy();
        window.content = null;
    }

    // The window keeps the content until another one is put in its place.
    function fill(next: Item): void {
        window.empty();
        window.content = next;
        next.parent = stage;
        next.anchors.fill = stage;
        next.focus = true;
    }

    WindowFrame {
        anchors.fill: parent
        menu: window.mainMenu

        FocusScope {
            id: stage
            anchors.fill: parent
            focus: true
        }
    }
}
