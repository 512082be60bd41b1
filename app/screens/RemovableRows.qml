pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts

/// Names below each other, each with a button that removes it. Whoever removes one by keyboard stays among the others,
/// or comes to what stands after the last.
ColumnLayout {
    id: root

    required property list<string> names
    /// What each button says.
    required property list<string> removals
    property bool isLeftToRight: false
    required property Item afterwards

    signal removed(int index)

    function remove(index: int, byKeyboard: bool) {
        removed(index);
        if (!byKeyboard)
            return;
        const next = rows.itemAt(Math.min(index, rows.count - 1)) as RemovableRow;
        (next?.button ?? afterwards).forceActiveFocus(Qt.TabFocusReason);
    }

    Layout.fillWidth: true
    visible: names.length > 0
    spacing: 6

    Repeater {
        id: rows

        model: root.names

        RemovableRow {
            required property string modelData
            required property int index

            name: modelData
            removal: root.removals[index] ?? ""
            isLeftToRight: root.isLeftToRight
            onRemoved: byKeyboard => root.remove(index, byKeyboard)
        }
    }
}
