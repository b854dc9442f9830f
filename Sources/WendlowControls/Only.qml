import QtQuick

// Makes its one component only while it is wanted. A Loader would do, but Qt 6.4's cannot make a bound
// component.
Repeater {
    required property bool wanted

    model: wanted ? 1 : 0
}
