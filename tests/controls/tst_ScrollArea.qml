import QtQuick
import QtQuick.Layouts
import QtTest
import Velmorin.Controls
import Velmorin.Shell
import Velmorin.Tests

Bench {
    id: bench

    Page {
        id: page

        width: 600
        height: 400
        title: Texts.tabThoughts
        subtitle: Texts.thoughtsSubtitle
        footer: QuietLink { text: Texts.clearStats }

        Card {
            id: card

            AppText { Layout.fillWidth: true; text: Texts.phoneOneWayNote; wrapMode: Text.Wrap }
        }

        Repeater {
            id: cards

            model: 12

            SoftButton {
                required property int index

                text: "button " + index
                implicitHeight: 60
                Layout.fillWidth: true
            }
        }
    }

    ControlCase {
        name: "ScrollArea"

        function isInView(item: Item): bool {
            const top = item.mapToItem(page, 0, 0).y;
            return top >= 0 && top + item.height <= page.height;
        }

        function init() {
            Stage.reset();
            page.width = 600;
            page.contentY = 0;
            settle(page);
        }

        function test_whatTheTabKeyLeadsToComesIntoView() {
            cards.itemAt(0).forceActiveFocus(Qt.TabFocusReason);
            for (let index = 1; index < 12; ++index) {
                keyClick(Qt.Key_Tab);
                verify(cards.itemAt(index).activeFocus);
                verify(isInView(cards.itemAt(index)), "button " + index);
            }
            for (let index = 10; index >= 0; --index) {
                keyClick(Qt.Key_Backtab);
                verify(isInView(cards.itemAt(index)), "button " + index);
            }
        }

        function test_aClickMovesNothing() {
            const half = cards.itemAt(3);
            page.contentY = half.mapToItem(page.contentItem, 0, 0).y - page.height + 30;
            const place = page.contentY;
            mouseClick(half, half.width / 2, 10);
            verify(half.activeFocus);
            compare(page.contentY, place);
        }

        function test_keysScroll() {
            cards.itemAt(0).forceActiveFocus();
            wait(0); // until it has come into view
            page.contentY = 0;
            keyClick(Qt.Key_PageDown);
            compare(page.contentY, 360);
            keyClick(Qt.Key_PageUp);
            compare(page.contentY, 0);
            keyClick(Qt.Key_End);
            compare(page.contentY, page.contentHeight - page.height);
            keyClick(Qt.Key_Home);
            compare(page.contentY, 0);
            keyClick(Qt.Key_Down);
            verify(page.contentY > 0);
        }

        function test_theBarTellsWhereOneIs() {
            const bar = page.children[page.children.length - 1];
            verify(bar.visible);
            compare(bar.y, 0);
            page.contentY = page.contentHeight - page.height;
            fuzzyCompare(bar.y + bar.height, page.height, 1);
        }

        function test_theBarIsAtTheEndOfTheLines() {
            const bar = page.children[page.children.length - 1];
            verify(leftOf(bar) < 20);
            Stage.setLanguage("en");
            verify(leftOf(bar) > 560);
        }

        function test_thePageIsAtMost680Wide() {
            page.width = 1000;
            settle(page);
            const column = page.contentItem.children[0];
            compare(column.width, 680);
            compare(column.x, 160);
        }

        function test_aCardFitsItsTextAtEveryWidth() {
            let heights = new Set();
            for (let width = 700; width > 250; width -= 23) {
                page.width = width;
                settle(page);
                compare(card.height, card.implicitHeight);
                compare(cards.itemAt(0).y, card.y + card.height + 18);
                heights.add(card.height);
            }
            verify(heights.size > 2);
        }

        function test_theTitles() {
            const title = page.contentItem.children[0].children[0].children[0];
            const subtitle = page.contentItem.children[0].children[0].children[1];
            compare(title.text, Texts.tabThoughts);
            compare(title.font.weight, Font.DemiBold);
            compare(title.font.pixelSize, 32);
            compare(subtitle.font.pixelSize, 16);
            compare(Stage.heard(title).role, Accessible.Heading);
        }

        function test_aShortContentDoesNotScroll() {
            cards.model = 1;
            settle(page);
            verify(!page.overflows);
            verify(!page.interactive);
            cards.model = 12;
        }

        function test_whenTheContentShrinksThePlaceIsFoundAgain() {
            page.contentY = page.contentHeight - page.height;
            cards.model = 1;
            settle(page);
            compare(page.contentY, 0);
            cards.model = 12;
        }
    }
}
