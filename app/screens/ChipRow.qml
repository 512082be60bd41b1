pragma ComponentBehavior: Bound

import QtQuick
import Velmorin.Controls

/// Names of which one is chosen, in a row that scrolls sideways when it is longer than its place.
Flickable {
    id: root

    required property list<string> names
    required property int selectedIndex
    /// The room for the rings around focused chips, which the row would cut off.
    readonly property real rim: 6
    readonly property Item focused: Window.activeFocusItem
    readonly property real hidden: Math.max(0, contentWidth - width)

    signal selected(int index)

    /// Brings a chip into view, with a piece of its neighbour.
    function reveal(chip: Item) {
        if (!chip || chip.parent !== row)
            return;
        const left = row.x + chip.x - 24;
        const right = row.x + chip.x + chip.width + 24;
        contentX = Math.max(0, Math.min(hidden, Math.max(Math.min(contentX, left), right - width)));
    }

    /// Starts at the leading edge, or further on where the chosen one is there.
    function settle() {
        contentX = row.LayoutMirroring.enabled ? hidden : 0;
        reveal(chips.itemAt(selectedIndex));
    }

    implicitWidth: contentWidth
    implicitHeight: row.implicitHeight + 2 * rim
    contentWidth: row.implicitWidth + 2 * rim
    contentHeight: height
    flickableDirection: Flickable.HorizontalFlick
    boundsBehavior: Flickable.StopAtBounds
    interactive: contentWidth > width
    clip: interactive
    onFocusedChanged: reveal(focused)
    onWidthChanged: Qt.callLater(settle)
    onContentWidthChanged: Qt.callLater(settle)
    onSelectedIndexChanged: reveal(chips.itemAt(selectedIndex))

    Row {
        id: row

        // What is shorter than its place starts at the leading edge.
        x: LayoutMirroring.enabled ? Math.max(root.rim, root.width - implicitWidth - root.rim) : root.rim
        y: root.rim
        spacing: 8

        Repeater {
            id: chips

            model: root.names

            ChipButton {
                required property string modelData
                required property int index

                width: Math.min(implicitWidth, 260)
                title: modelData
                isSelected: index === root.selectedIndex
                onClicked: root.selected(index)
            }
        }
    }
}
