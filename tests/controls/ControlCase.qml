import QtQuick
import QtTest
import Velmorin.Tests

/// What the tests of every control share.
TestCase {
    id: root

    /// The left edge of an item in the window.
    function leftOf(item: Item): real {
        return item.mapToItem(null, 0, 0).x;
    }

    function press(item: Item) {
        mouseClick(item);
    }

    /// Waits for what has been changed to find its place.
    function settle(item: Item) {
        grabImage(item);
    }

    when: windowShown

    function init() {
        Stage.reset();
    }
}
