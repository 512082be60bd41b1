import QtQuick

// What the windows under test show: a plain colour, a field that takes what is typed, and a button over the left half.
Rectangle {
    required property QtObject model
    required property bool isPrimary
    required property real unit

    color: model.color

    TextInput {
        anchors.centerIn: parent
        focus: parent.isPrimary
        onTextChanged: parent.model.typed = text
    }
    MouseArea {
        width: parent.width / 2
        height: parent.height
        onClicked: parent.model.clicks += 1
    }
}
