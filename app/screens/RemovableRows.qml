import QtQuick
import QtQuick.Layouts
import Velmorin.Controls

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
        const next = rows.itemAt(Math.min(index, rows.count - 1));
        (next ? next.button : afterwards).forceActiveFocus(Qt.TabFocusReason);
    }

    Layout.fillWidth: true
    visible: names.length > 0
    spacing: 6

    Repeater {
        id: rows

        model: root.names

        RowLayout {
            id: row

            required property string modelData
            required property int index
            readonly property Item button: removal

            Layout.fillWidth: true
            spacing: 12

            AppText {
                Layout.fillWidth: true
                text: root.isLeftToRight ? "\u2066" + row.modelData + "\u2069" : row.modelData
                elide: Text.ElideRight
            }

            ClearTextButton {
                id: removal

                text: root.removals[row.index] ?? ""
                padding: 6
                onClicked: root.remove(row.index, visualFocus)

                RemoveIcon {}
            }
        }
    }
}
