import QtQuick
import QtQuick.Templates as T
import WendlowEditorRules

// What a line of the face of the rules is told of itself, and is to a screen reader.
T.ItemDelegate {
    id: row

    required property int index
    required property int kind
    required property string words
    required property string lead
    required property string beside
    required property string number
    required property string trailing
    required property string under
    required property string tip
    required property string told
    required property bool warns
    required property bool apart
    required property bool first
    required property bool last
    required property bool ends
    required property bool stop
    required property bool editable
    required property bool canAdd
    required property bool canRetry
    required property bool editing
    required property bool busy

    required property RulesFaceModel face
    required property bool chosen
    required property bool ringed

    // Rows that are things of a list; the others are words between them.
    readonly property bool listed: row.kind === RulesRows.Rule || row.kind === RulesRows.Level || row.kind === RulesRows.Module || row.kind === RulesRows.Group

    // The list is to stop at this row, and to have the focus.
    signal claimed

    // Does what the row is for.
    function activate(): void {
        row.claimed();
        row.face.activate(row.index);
    }

    hoverEnabled: true
    focusPolicy: Qt.NoFocus
    text: row.words
    // A field that goes with the focus leaves it to its row.
    onEditingChanged: if (!row.editing && row.chosen)
        row.claimed()

    Accessible.ignored: !row.listed
    Accessible.name: row.words.length > 0 ? row.words : row.lead
    Accessible.description: !row.editable || row.editing ? row.told : row.told.length > 0 ? qsTr("%1, Return edits it").arg(row.told) : qsTr("Return edits it")
    Accessible.selectable: true
    Accessible.selected: row.chosen
    Accessible.onPressAction: row.activate()
}
