import QtQuick
import QtQuick.Templates as T

// What a line of the face of the mods is told of itself, and is to a screen reader.
T.ItemDelegate {
    id: row

    required property int index
    required property int kind
    required property string words
    required property string beside
    required property string under
    required property string trailing
    required property string outcome
    required property int tone
    required property string help
    required property string tip
    required property string told
    required property bool opens
    required property bool first
    required property bool last
    required property bool parts
    required property bool stop

    required property bool chosen
    required property bool ringed

    // It is to do what it is for.
    signal acted
    // What lies over it was pressed. The signal of a press cannot be sent on: its name is a property's too.
    signal claimed

    hoverEnabled: true
    focusPolicy: Qt.NoFocus
    text: row.words

    Accessible.ignored: !row.stop
    Accessible.role: row.opens ? Accessible.Button : Accessible.ListItem
    Accessible.name: row.words
    Accessible.description: row.help.length > 0 ? row.told + ", " + row.help : row.told
    Accessible.selectable: true
    Accessible.selected: row.chosen
    Accessible.onPressAction: row.acted()
}
