import QtQuick
import QtTest
import Velmorin.Controls
import Velmorin.Shell
import Velmorin.Tests

Bench {
    AppSlider {
        id: slider

        property int answers: 0

        width: 300
        from: 5
        to: 55
        stepSize: 5
        value: 25
        accessibleName: Texts.focusLength
        onMoved: wanted => {
            value = wanted;
            ++answers;
        }
    }

    ControlCase {
        name: "AppSlider"

        readonly property Item inner: slider.children[0]

        function init() {
            Stage.reset();
            slider.enabled = true;
            slider.value = 25;
            slider.answers = 0;
        }

        function test_keys_data() {
            return [
                { tag: "Persian, left", language: "fa", key: Qt.Key_Left, value: 30 },
                { tag: "Persian, right", language: "fa", key: Qt.Key_Right, value: 20 },
                { tag: "English, left", language: "en", key: Qt.Key_Left, value: 20 },
                { tag: "English, right", language: "en", key: Qt.Key_Right, value: 30 },
                { tag: "up", language: "fa", key: Qt.Key_Up, value: 30 },
                { tag: "down", language: "fa", key: Qt.Key_Down, value: 20 },
                { tag: "page up", language: "en", key: Qt.Key_PageUp, value: 50 },
                { tag: "page down", language: "en", key: Qt.Key_PageDown, value: 5 },
                { tag: "home", language: "en", key: Qt.Key_Home, value: 5 },
                { tag: "end", language: "en", key: Qt.Key_End, value: 55 }
            ];
        }

        function test_keys(data) {
            Stage.setLanguage(data.language);
            slider.forceActiveFocus();
            keyClick(data.key);
            compare(slider.value, data.value);
            compare(slider.answers, 1);
            compare(inner.value, data.value);
        }

        function test_aKeyAtTheEndIsNoNews() {
            slider.value = 55;
            slider.forceActiveFocus();
            keyClick(Qt.Key_Up);
            compare(slider.answers, 0);
        }

        function test_theMouseMovesItInSteps() {
            Stage.setLanguage("en");
            mouseClick(slider, slider.width - 2, slider.height / 2);
            compare(slider.value, 55);
            mouseClick(slider, 2, slider.height / 2);
            compare(slider.value, 5);
            mouseDrag(slider, 12, slider.height / 2, slider.width / 2 - 12, 0);
            compare(slider.value % 5, 0);
            compare(slider.value, 30);
        }

        function test_fromRightToLeftTheBeginningIsRight() {
            mouseClick(slider, slider.width - 2, slider.height / 2);
            compare(slider.value, 5);
            mouseClick(slider, 2, slider.height / 2);
            compare(slider.value, 55);
        }

        function test_theHandleStandsWhereTheValueIs() {
            Stage.setLanguage("en");
            slider.value = 5;
            verify(inner.handle.x < 5);
            slider.value = 55;
            verify(inner.handle.x > slider.width - inner.handle.width - 5);
            Stage.setLanguage("fa");
            verify(inner.handle.x < 5);
        }

        function test_itShowsWhatIsAndNotWhatWasAskedFor() {
            let asked = [];
            const refusing = createTemporaryQmlObject(
                "import Velmorin.Controls; AppSlider { width: 300; to: 10; stepSize: 1; value: 4 }", slider.parent);
            refusing.moved.connect(wanted => asked.push(wanted));
            refusing.forceActiveFocus();
            keyClick(Qt.Key_End);
            keyClick(Qt.Key_Up);
            compare(asked, [10, 5]);
            compare(refusing.value, 4);
            compare(refusing.children[0].value, 4);
        }

        function test_disabledItStays() {
            slider.enabled = false;
            mouseClick(slider, 2, slider.height / 2);
            compare(slider.answers, 0);
        }

        function test_whatAScreenReaderSays() {
            const heard = Stage.heard(inner);
            compare(heard.name, Texts.focusLength);
            compare(heard.role, Accessible.Slider);
            compare(heard.value, 25);
            compare(heard.minimum, 5);
            compare(heard.maximum, 55);
        }

        function test_aScreenReaderMovesIt() {
            verify(Stage.act(inner, "Increase"));
            compare(slider.value, 30);
            verify(Stage.act(inner, "Decrease"));
            compare(slider.value, 25);
        }

        function test_theRingIsForTheKeyboard() {
            const ring = inner.handle.children[0];
            mouseClick(slider, 20, slider.height / 2);
            verify(!ring.visible);
            slider.parent.forceActiveFocus();
            inner.forceActiveFocus(Qt.TabFocusReason);
            verify(ring.visible);
        }
    }
}
