import QtQuick
import Velmorin.Controls

/// A column in the middle of a screen, with the buttons at its foot. What finds no room scrolls; the buttons always stay
/// in sight.
Item {
    id: root

    required property real unit
    default property alias content: column.data
    property alias footer: bottom.data
    /// The largest room between two rows; a low screen makes it smaller.
    property real largestGap: 28
    readonly property real gap: Math.max(6 * unit, Math.min(largestGap * unit, (height - bottom.height - filled) / rows))
    readonly property int rows: Array.from(column.children).filter(row => row.visible && row.height > 0).length
    /// What the rows take together.
    readonly property real filled: Array.from(column.children).reduce((sum, row) => sum + (row.visible ? row.height : 0), 0)
    /// Beside the column, for what shows that it scrolls.
    readonly property real side: 14

    Item {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        height: area.height + (bottom.height > 0 ? root.gap + bottom.height : 0)

        ScrollArea {
            id: area

            x: -root.side
            width: parent.width + 2 * root.side
            height: Math.min(column.height, root.height - (bottom.height > 0 ? root.gap + bottom.height : 0))
            contentHeight: column.height

            Column {
                id: column

                x: root.side
                width: root.width
                spacing: root.gap
            }
        }

        Column {
            id: bottom

            anchors.bottom: parent.bottom
            width: parent.width
            spacing: 10 * root.unit
        }
    }
}
