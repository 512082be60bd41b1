pragma ComponentBehavior: Bound

import QtQuick
import Velmorin.Shell
import Velmorin.Controls

/// Applications to turn on and off. Only those to be seen exist, with their icons. One stop of the Tab key: the arrow keys go
/// from row to row, Space and Return turn the present one.
ListView {
    id: root

    required property AppPickerModel picker

    function turn() {
        if (currentItem)
            (currentItem as AppRow).turned(!(currentItem as AppRow).isOn);
    }

    model: picker
    clip: true
    activeFocusOnTab: true
    keyNavigationEnabled: true
    currentIndex: 0
    boundsBehavior: Flickable.StopAtBounds
    highlightMoveDuration: 0
    Accessible.role: Accessible.List
    Accessible.name: Texts.allowedApps

    Keys.onSpacePressed: turn()
    Keys.onReturnPressed: turn()
    Keys.onEnterPressed: turn()

    Rectangle {
        parent: root
        anchors.right: parent.right
        y: root.visibleArea.yPosition * root.height
        width: 5
        height: Math.max(root.visibleArea.heightRatio * root.height, 24)
        radius: 2.5
        visible: root.visibleArea.heightRatio < 1
        color: Theme.muted
        opacity: 0.5
    }

    delegate: AppRow {
        required property int index

        width: root.width
        height: implicitHeight
        isCurrent: ListView.isCurrentItem && root.activeFocus
        onTurned: isOn => {
            root.currentIndex = index;
            root.picker.setOn(index, isOn);
        }
    }
}
