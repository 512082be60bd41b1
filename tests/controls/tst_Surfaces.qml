import QtQuick
import QtQuick.Layouts
import QtTest
import Velmorin.Controls
import Velmorin.Shell
import Velmorin.Tests

Bench {
    ColumnLayout {
        width: 500
        spacing: 10

        CardSurface {
            id: surface

            Rectangle {
                anchors.fill: parent
                anchors.margins: 12
                implicitWidth: 100
                implicitHeight: 40
            }
        }
        Card {
            id: card

            title: Texts.goalHeading

            Rectangle { id: inCard; implicitWidth: 50; implicitHeight: 30 }
        }
        FieldBox {
            id: box

            minHeight: 54
            Layout.fillWidth: true

            AppTextField { id: field; Layout.fillWidth: true }
        }
        SettingRow {
            id: row

            icon: "leaf"
            title: Texts.showBackdrop
            detail: Texts.phoneOneWayNote

            AppToggle { id: toggle; label: Texts.showBackdrop; showsLabel: false }
        }
        FormHeading { id: heading; title: Texts.modeHeading }
        RowLayout {
            IconBadge { id: badge; icon: "phone"; size: 50 }
            Symbol { id: symbol; name: "leaf"; size: 24 }
            AppMark { id: mark; size: 64 }
        }
    }

    ControlCase {
        name: "Surfaces"

        function init() {
            Stage.reset();
            settle(row);
        }

        function test_aSurfaceIsRaisedAndHasALine() {
            compare(surface.color, Theme.raised);
            compare(surface.border.width, 1);
            compare(surface.border.color, Theme.line);
            compare(surface.radius, surface.cornerRadius);
        }

        function test_aSurfaceIsAsLargeAsWhatIsOnIt() {
            compare(surface.implicitWidth, 124);
            compare(surface.implicitHeight, 64);
        }

        function test_aCardHasRoomAroundItsContent() {
            compare(card.radius, 18);
            compare(card.width, 500);
            compare(leftOf(card) + 500 - 22, leftOf(inCard) + inCard.width);
            compare(card.children[0].children[0].text, Texts.goalHeading);
            compare(card.children[0].children[0].font.weight, Font.DemiBold);
            compare(card.children[0].children[0].font.pixelSize, 15);
            compare(Stage.heard(card.children[0].children[0]).role, Accessible.Heading);
        }

        function test_aCardWithoutATitleBeginsWithItsContent() {
            card.title = "";
            settle(card);
            compare(inCard.mapToItem(card, 0, 0).y, 22);
            card.title = Qt.binding(() => Texts.goalHeading);
        }

        function test_aBoxHasTheHeightItIsTold() {
            compare(box.height, 54);
            compare(box.radius, 14);
            compare(field.width, 500 - 36);
        }

        function test_aBoxThatIsTypedIntoHasAnAccent() {
            compare(box.border.color, Theme.line);
            field.forceActiveFocus();
            compare(box.border.color, Theme.accent);
            toggle.forceActiveFocus();
            compare(box.border.color, Theme.line);
        }

        function test_aBoxGrowsWithItsScale() {
            box.unit = 2;
            compare(box.radius, 28);
            settle(box);
            compare(field.width, 500 - 72);
            box.unit = 1;
        }

        function test_aBoxGrowsWithItsText() {
            field.text = "word ".repeat(100);
            settle(box);
            verify(box.height > 100);
            verify(box.height >= field.implicitHeight);
            field.text = "";
        }

        function test_aRowReadsFromTheIconToTheControl() {
            const icon = row.children[0];
            for (const language of ["fa", "en"]) {
                Stage.setLanguage(language);
                settle(row);
                compare(leftOf(icon) < leftOf(toggle), language === "en");
            }
            Stage.setLanguage("fa");
            settle(row);
            compare(leftOf(toggle), leftOf(row));
        }

        function test_aLongDetailWraps() {
            row.detail = "word ".repeat(60);
            settle(row);
            const detail = row.children[1].children[1];
            verify(detail.lineCount > 1);
            verify(row.height >= detail.contentHeight);
            row.detail = Qt.binding(() => Texts.phoneOneWayNote);
        }

        function test_aHeading() {
            compare(heading.font.weight, Font.DemiBold);
            compare(heading.color, Theme.muted);
            compare(Stage.heard(heading).role, Accessible.Heading);
            compare(Stage.heard(heading).name, Texts.modeHeading);
        }

        function test_aBadgeHoldsItsIcon() {
            compare(badge.color, Theme.accentSoft);
            compare(badge.children[0].name, "phone");
            compare(badge.children[0].width, 23);
        }

        function test_everySymbolIsKnown() {
            for (const name of ["pencil", "leaf", "warning", "close", "plus", "play", "profiles", "thoughts", "stats",
                                "settings", "phone", "search", "check", "scope"]) {
                symbol.name = name;
                verify(symbol.isKnown, name);
            }
            symbol.name = "nothing";
            verify(!symbol.isKnown);
            symbol.name = "leaf";
        }

        function test_aSymbolIsDrawnInItsColour() {
            symbol.name = "play";
            symbol.color = "#ff0000";
            compare(Stage.pixel(symbol, 12, 12), Qt.color("#ff0000"));
            symbol.color = "#00ff00";
            compare(Stage.pixel(symbol, 12, 12), Qt.color("#00ff00"));
        }

        function test_theMarkHasRoundCorners() {
            for (const [x, y] of [[0, 0], [63, 0], [0, 63], [63, 63]])
                compare(Stage.pixel(mark, x, y).a, 0);
            compare(Stage.pixel(mark, 32, 2).a, 1);
        }

        function test_withoutItsPictureTheMarkIsASymbol() {
            const made = createTemporaryQmlObject(
                "import Velmorin.Controls; AppMark { size: 40; source: 'nowhere.png' }", mark.parent);
            verify(!made.children[0].visible);
            verify(made.children[1].visible);
            compare(made.children[1].name, "scope");
        }
    }
}
