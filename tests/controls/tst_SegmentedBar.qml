import QtQuick
import QtTest
import Velmorin.Controls
import Velmorin.Shell
import Velmorin.Tests

Bench {
    Column {
        SoftButton { id: before; text: "before" }
        SegmentedBar {
            id: bar

            property int answers: 0

            width: 500
            options: [Texts.periodToday, Texts.periodWeek, Texts.periodMonth, Texts.periodAll]
            onSelected: index => {
                selection = index;
                ++answers;
            }
        }
        SoftButton { id: behind; text: "behind" }
    }

    ControlCase {
        name: "SegmentedBar"

        function segment(index: int): Item {
            return bar.children[0].children[index];
        }

        function init() {
            Stage.reset();
            bar.selection = 1;
            bar.answers = 0;
            bar.enabled = true;
            settle(bar);
        }

        function test_aClickChooses() {
            press(segment(3));
            compare(bar.selection, 3);
            compare(bar.answers, 1);
        }

        function test_choosingTheSameAgainIsNoNews() {
            press(segment(1));
            compare(bar.answers, 0);
        }

        function test_theChosenOneSitsOnTheAccent() {
            compare(segment(1).background.color, Theme.accent);
            compare(segment(1).contentItem.color, Theme.onAccent);
            compare(segment(1).contentItem.font.weight, Font.DemiBold);
            compare(segment(0).background.color, Qt.rgba(0, 0, 0, 0));
            compare(segment(0).contentItem.font.weight, Font.Normal);
            compare(segment(0).contentItem.font.pixelSize, 15);
            compare(bar.color, Theme.raised);
        }

        function test_arrowsFollowTheReadingDirection_data() {
            return [
                { tag: "Persian, left", language: "fa", key: Qt.Key_Left, chosen: 2 },
                { tag: "Persian, right", language: "fa", key: Qt.Key_Right, chosen: 0 },
                { tag: "English, left", language: "en", key: Qt.Key_Left, chosen: 0 },
                { tag: "English, right", language: "en", key: Qt.Key_Right, chosen: 2 },
                { tag: "down", language: "fa", key: Qt.Key_Down, chosen: 2 },
                { tag: "up", language: "fa", key: Qt.Key_Up, chosen: 0 }
            ];
        }

        function test_arrowsFollowTheReadingDirection(data) {
            Stage.setLanguage(data.language);
            segment(1).forceActiveFocus(Qt.TabFocusReason);
            keyClick(data.key);
            compare(bar.selection, data.chosen);
            verify(segment(data.chosen).visualFocus);
        }

        function test_anArrowEndsAtTheEnd() {
            bar.selection = 3;
            segment(3).forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Down);
            compare(bar.selection, 3);
            compare(bar.answers, 0);
        }

        function test_theTabKeyStopsOnce() {
            before.forceActiveFocus();
            keyClick(Qt.Key_Tab);
            verify(segment(1).activeFocus);
            keyClick(Qt.Key_Tab);
            verify(behind.activeFocus);
            keyClick(Qt.Key_Backtab);
            verify(segment(1).activeFocus);
        }

        function test_withoutAChoiceTheTabKeyStopsAtTheFirst() {
            bar.selection = -1;
            before.forceActiveFocus();
            keyClick(Qt.Key_Tab);
            verify(segment(0).activeFocus);
            keyClick(Qt.Key_Space);
            compare(bar.selection, 0);
        }

        function test_theFirstOptionIsWhereReadingBegins() {
            verify(leftOf(segment(0)) > leftOf(segment(3)));
            Stage.setLanguage("de");
            settle(bar);
            verify(leftOf(segment(0)) < leftOf(segment(3)));
        }

        function test_whatAScreenReaderSays() {
            const heard = Stage.heard(segment(1));
            compare(heard.name, Texts.periodWeek);
            compare(heard.role, Accessible.RadioButton);
            compare(heard.checked, true);
            compare(Stage.heard(segment(0)).checked, false);
        }

        function test_disabledItStays() {
            bar.enabled = false;
            press(segment(0));
            compare(bar.selection, 1);
        }

        function test_theOptionsFollowTheLanguage() {
            Stage.setLanguage("en");
            compare(segment(0).contentItem.text, Texts.periodToday);
        }
    }
}
