import QtQuick
import QtTest
import Velmorin.Controls
import Velmorin.Shell
import Velmorin.Tests

Bench {
    id: bench

    ThemeBackground {
        id: ground

        width: 600
        height: 400

        Rectangle {
            id: front

            x: 200
            y: 150
            width: 20
            height: 20
            color: "white"
        }
    }

    ControlCase {
        name: "ThemeBackground"

        function check(theme: string) {
            const image = grabImage(ground);
            for (const [x, y] of [[0, 0], [552, 16], [24, 399], [599, 399], [255, 95], [256, 96], [511, 191], [300, 390]])
                verify(Qt.colorEqual(image.pixel(x, y), Stage.ground(theme, 600, 400, x, y)), `${x}, ${y} in ${theme}`);
        }

        function test_itHasTheColoursOfTheTwoGlows() {
            check("dusk");
        }

        function test_itFollowsTheThemeAtOnce() {
            for (const theme of ["dawn", "aurora", "dusk"]) {
                Stage.setTheme(theme);
                check(theme);
            }
        }

        function test_itIsTheSameInAllLanguages() {
            const persian = grabImage(ground);
            Stage.setLanguage("en");
            verify(grabImage(ground).equals(persian));
        }

        function test_itCoversItsNewSize() {
            ground.height = 250;
            const image = grabImage(ground);
            compare(image.height, 250);
            verify(Qt.colorEqual(image.pixel(30, 240), Stage.ground("dusk", 600, 250, 30, 240)));
            ground.height = 400;
        }

        function test_whatWasInFrontLeavesNoTrace() {
            front.x = 400;
            const image = grabImage(ground);
            verify(Qt.colorEqual(image.pixel(210, 160), Stage.ground("dusk", 600, 400, 210, 160)));
            verify(Qt.colorEqual(image.pixel(410, 160), "white"));
            front.x = 200;
        }

        function test_aPictureOfItAloneIsTheSame() {
            const nested = createTemporaryQmlObject(
                "import QtQuick; import Velmorin.Controls; Item { x: 33; y: 21; ThemeBackground { x: 7; width: 300; height: 200 } }",
                bench);
            for (const [x, y] of [[0, 0], [276, 8], [12, 199], [257, 97]])
                compare(Stage.pixel(nested.children[0], x, y), Stage.ground("dusk", 300, 200, x, y));
        }

        function test_itMayShowAnotherThemeThanTheScreens() {
            ground.theme = "dawn";
            check("dawn");
            ground.theme = "";
            check("dusk");
        }

        function test_halfSeenItLetsThroughWhatIsBehind() {
            ground.opacity = 0.5;
            const image = grabImage(bench);
            const whole = Stage.ground("dusk", 600, 400, 552, 16);
            verify(image.red(552, 16) > whole.r * 255 * 0.4 && image.red(552, 16) < 255);
            verify(!Qt.colorEqual(image.pixel(552, 16), whole));
            ground.opacity = 1;
        }
    }
}
