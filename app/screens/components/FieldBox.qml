import QtQuick
import QtQuick.Layouts
import Velmorin.Controls

/// The box around what can be typed into. Its content stands in a row, centred, and grows with Layout.fillWidth.
Rectangle {
    id: root

    default property alias content: row.data
    property real minHeight: 48
    property real unit: 1

    readonly property bool isTypedInto: {
        let holder = Window.activeFocusItem as TextEdit as Item;
        while (holder && holder !== root)
            holder = holder.parent;
        return holder !== null;
    }

    implicitWidth: row.implicitWidth + 36 * unit
    implicitHeight: Math.max(minHeight, row.implicitHeight + 20 * unit)
    radius: 14 * unit
    color: Theme.raised
    border.width: 1
    border.color: isTypedInto ? Theme.accent : Theme.line

    RowLayout {
        id: row

        anchors.fill: parent
        anchors.leftMargin: 18 * root.unit
        anchors.rightMargin: 18 * root.unit
        spacing: 12 * root.unit
    }
}
