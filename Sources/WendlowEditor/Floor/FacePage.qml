import QtQuick

// What the stage shows of a face. The stage gives it its model, for which it has a required property
// `face`, where its words stand, and whether what failed is being tried again.
FocusScope {
    property int margin: 0
    property int column: 0
    property bool trying: false
    // Where the focus goes when the stage is entered by key; none: to the bar above.
    property Item first: null

    // What failed, or was not ready, is to be tried once more.
    signal triedAgain
}
