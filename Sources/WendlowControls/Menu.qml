import QtQuick
import QtQuick.Templates as T

// A menu that floats: surface, an edge, and its items.
T.Menu {
    id: menu

    // As wide as its widest line: a list does not know before it has laid itself out.
    readonly property real widest: {
        let width = Theme.scaled(160);
        for (let at = 0; at < menu.count; ++at)
            width = Math.max(width, menu.itemAt(at)?.implicitWidth ?? 0);
        return width;
    }

    implicitWidth: menu.widest + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding
    padding: 5
    margins: 4
    overlap: 1

    contentItem: ListView {
        implicitHeight: contentHeight
        model: menu.contentModel
        currentIndex: menu.currentIndex
        interactive: false
        keyNavigationEnabled: false
        Accessible.role: Accessible.PopupMenu
        Accessible.name: menu.title
    }

    // The list is the menu to a screen reader. What the template puts around it would be another, of no name.
    Component.onCompleted: menu.contentItem.parent.Accessible.ignored = true

    background: Rectangle {
        color: Theme.surface
        radius: Theme.radiusCard
        border.width: Theme.strokeHairline
        border.color: Theme.edge
    }
}
