import QtQuick
import WendlowControls

// What the state of an answer has to tell, and the way out of it, above what it is the answer to. While that
// way is being tried it stays as it is, and with it the focus.
Strip {
    id: strip

    // Empty: there is nothing to tell.
    required property string words
    property bool warns: false
    // Said where nothing else is to be told.
    property string waitingWords
    property bool trying: false

    property bool shown: false
    property bool toldWarns: false
    property string told

    readonly property string wanted: strip.words.length > 0 ? strip.words : strip.waitingWords

    function follow(): void {
        if (strip.wanted.length > 0) {
            strip.told = strip.wanted;
            strip.toldWarns = strip.warns && strip.words.length > 0;
        }
        strip.shown = strip.wanted.length > 0 || strip.trying && strip.shown;
    }

    text: strip.told
    tone: strip.toldWarns ? Strip.Tone.Warning : Strip.Tone.Information
    sign: strip.toldWarns ? "warn" : "clock"
    action: qsTr("Try again")
    acting: strip.trying
    height: strip.visible ? strip.implicitHeight : 0
    opacity: strip.shown ? 1 : 0
    visible: strip.opacity > 0

    onWantedChanged: strip.follow()
    onWarnsChanged: strip.follow()
    onTryingChanged: strip.follow()
    Component.onCompleted: strip.follow()

    Behavior on opacity {
        NumberAnimation { duration: strip.shown ? 0 : Theme.fadeOut }
    }
}
