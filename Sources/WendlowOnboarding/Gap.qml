import QtQuick

// Room between two blocks of a page.
Item {
    required property int size

    width: 1
    height: size
}
