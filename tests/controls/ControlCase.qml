import QtQuick
import QtTest
import Velmorin.Tests

/// What the tests of every control share.
TestCase {
    id: root

    /// How the space before an item's content and behind it differ in kind: its left edge in the window.
    function left(item: Item): real {
        return item.mapToItem(null, 0, 0).x;
    }

    function press(item: Item) {
        mouseClick(item);
    }

    when: windowShown
    function init() {
        Stage.reset();
    }
}
