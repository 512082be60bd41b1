import QtQuick
import QtTest
import Velmorin.Controls
import Velmorin.Shell
import Velmorin.Tests

Bench {
    AppToggle {
        id: toggle

        property int answers: 0

        width: 400
        label: Texts.showBackdrop
        onToggled: on => {
            isOn = on;
            ++answers;
        }
    }

    ControlCase {
        name: "AppToggle"

        readonly property Item knob: toggle.contentItem.children[1].children[0]
        readonly property Item capsule: toggle.contentItem.children[1]

        function init() {
            Stage.reset();
            toggle.isOn = false;
            toggle.enabled = true;
            toggle.answers = 0;
        }

        function test_everyWayToTurnIt() {
            press(toggle);
            compare(toggle.isOn, true);
            toggle.forceActiveFocus();
            keyClick(Qt.Key_Space);
            compare(toggle.isOn, false);
            keyClick(Qt.Key_Return);
            compare(toggle.isOn, true);
            verify(Stage.act(toggle, "Toggle") || Stage.act(toggle, "Press"));
            compare(toggle.isOn, false);
            compare(toggle.answers, 4);
        }

        function test_aHeldKeyTurnsItOnce() {
            toggle.forceActiveFocus();
            Stage.holdKey(toggle, Qt.Key_Space, 4);
            compare(toggle.answers, 1);
            Stage.holdKey(toggle, Qt.Key_Return, 4);
            compare(toggle.answers, 2);
        }

        function test_itShowsWhatIsAndNotWhatWasAskedFor() {
            let asked = [];
            const refusing = createTemporaryQmlObject(
                "import Velmorin.Controls; AppToggle { property list<bool> asked; label: 'x' }", toggle.parent);
            refusing.toggled.connect(on => asked.push(on));
            press(refusing);
            press(refusing);
            compare(asked, [true, true]);
            compare(refusing.isOn, false);
        }

        function test_disabledItStays() {
            toggle.enabled = false;
            press(toggle);
            compare(toggle.answers, 0);
            verify(toggle.contentItem.opacity < 1);
        }

        function test_itsColours() {
            compare(capsule.color, Theme.line);
            toggle.isOn = true;
            compare(capsule.color, Theme.accent);
        }

        function test_theDiscIsAtTheEndWhenItIsOn() {
            Stage.setLanguage("en");
            compare(knob.x, 3);
            toggle.isOn = true;
            compare(knob.x, capsule.width - knob.width - 3);
        }

        function test_fromRightToLeftTheEndIsLeft() {
            compare(knob.x, capsule.width - knob.width - 3);
            toggle.isOn = true;
            compare(knob.x, 3);
        }

        function test_theLabelComesFirst() {
            const label = toggle.contentItem.children[0];
            for (const language of ["fa", "de"]) {
                Stage.setLanguage(language);
                settle(toggle);
                compare(leftOf(label) < leftOf(capsule), language === "de");
            }
        }

        function test_whereMotionIsWelcomeTheDiscSlides() {
            Stage.setLanguage("en");
            Stage.setReducesMotion(false);
            toggle.isOn = true;
            verify(knob.x < 10);
            tryCompare(knob, "x", capsule.width - knob.width - 3);
        }

        function test_whatAScreenReaderSays() {
            const heard = Stage.heard(toggle);
            compare(heard.name, Texts.showBackdrop);
            compare(heard.role, Accessible.CheckBox);
            compare(heard.checkable, true);
            compare(heard.checked, false);
            toggle.isOn = true;
            compare(Stage.heard(toggle).checked, true);
        }

        function test_aHiddenLabelIsSaidAllTheSame() {
            toggle.showsLabel = false;
            verify(!toggle.contentItem.children[0].visible);
            compare(Stage.heard(toggle).name, Texts.showBackdrop);
            toggle.showsLabel = true;
        }

        function test_aLongLabelWraps() {
            toggle.width = 160;
            settle(toggle);
            verify(toggle.contentItem.children[0].lineCount > 1);
            verify(toggle.height >= toggle.contentItem.children[0].contentHeight);
            toggle.width = 400;
        }
    }
}
