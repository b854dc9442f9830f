import QtQuick
import QtQuick.Templates as T
import WendlowControls

// A row that leads to more, with a chevron at its right, and words that say what it leads to; or one that does
// not, and says why. What is put into it stands left of the chevron. A list that holds such rows keeps the
// focus to itself, and says which of them shows it.
T.ItemDelegate {
    id: row

    property bool leads: true
    // What it leads to, or why to nothing.
    property string help
    // In its tooltip, where more has to be said.
    property string tipped: row.help
    property bool lit: row.hovered
    property bool sunk: row.down
    property bool ringed: row.visualFocus

    default property alias content: inside.data
    // Tinted rows have second words of their own colour.
    readonly property bool tinted: row.leads && (row.lit || row.sunk)

    implicitHeight: Theme.scaled(32)
    hoverEnabled: true

    Accessible.role: row.leads ? Accessible.Button : Accessible.ListItem
    Accessible.name: row.text
    Accessible.description: row.help
    Accessible.onPressAction: if (row.leads)
        row.clicked()

    background: HoverFill {
        radius: Theme.radiusButton
        lit: row.tinted
        shade: row.sunk ? Theme.pressed : Theme.hover

        FocusRing {
            shown: row.ringed
            inside: true
        }
    }

    Item {
        id: inside
        width: row.width - (chevron.visible ? 28 : 8)
        height: row.height
    }
    Icon {
        id: chevron
        x: row.width - width - 8
        anchors.verticalCenter: parent.verticalCenter
        visible: row.leads
        size: 12
        name: "right"
        color: row.tinted ? Theme.textSecondOnTint : Theme.textSecond
    }
    Hint {
        text: row.tipped
        leading: true
        wanted: row.hovered || row.ringed
    }
}
