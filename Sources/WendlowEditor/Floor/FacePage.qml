import QtQuick

// What the stage shows of a face. The stage gives it its model, for which it has a required property
// `face`, where its words stand, and whether what failed is being tried again.
FocusScope {
    property int margin: 0
    property int column: 0
    // What a panel that lies over the page covers: the whole stage.
    property Item over: null
    property bool trying: false
    // Said where the daemon has been silent for long; else empty.
    property string waitingWords
    // Where the focus goes when the stage is entered; none: there is nothing yet.
    property Item first: null
    // Where it is until there is; none: at the bar above.
    property Item meanwhile: null

    // What failed, or was not ready, is to be tried once more.
    signal triedAgain
    // What was open has been closed, with what was pressed for it: the focus is to go to what is there now.
    signal steppedBack
}
