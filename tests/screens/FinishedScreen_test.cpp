#include "tests/screens/OverlayTest.h"

#include <algorithm>

namespace velmorin {
namespace {

class FinishedScreenTest : public OverlayTest {
protected:
    void finish(SessionMode mode, QSize size = {1280, 900}) {
        startSession(mode);
        advance(mode == SessionMode::deep ? 180 * 60 : 130 * 60);
        showPrimary(size);
    }
    std::size_t tiles() const {
        std::size_t count = 0;
        const auto known = {strings().focusTime, strings().completedRoundsLabel, strings().timesReturnedToWork,
                            strings().thoughtsKept};
        for (const auto label : known) {
            if (itemWithText(label)) ++count;
        }
        return count;
    }
};

TEST_F(FinishedScreenTest, aSessionWithRoundsHasFourTiles) {
    finish(SessionMode::pomodoro);
    ASSERT_TRUE(isUp<Overlay::Finished>());
    EXPECT_EQ(tiles(), 4U);
    EXPECT_NE(itemWithText("1 hr 40 min"), nullptr);
}

TEST_F(FinishedScreenTest, aDeepSessionHasThreeTiles) {
    finish(SessionMode::deep);
    ASSERT_TRUE(isUp<Overlay::Finished>());
    EXPECT_EQ(tiles(), 3U);
    EXPECT_EQ(itemWithText(strings().completedRoundsLabel), nullptr);
}

TEST_F(FinishedScreenTest, theReturnKeyPressesTheButton) {
    finish(SessionMode::deep);
    press(Qt::Key_Return);
    EXPECT_TRUE(isUp<Overlay::None>());
    EXPECT_TRUE(texts().isEmpty()) << "the window is on its way out";
}

TEST_F(FinishedScreenTest, aKeyThatIsHeldDoesNot) {
    finish(SessionMode::deep);
    hold(Qt::Key_Return);
    press(Qt::Key_Space);
    EXPECT_TRUE(isUp<Overlay::Finished>());
}

TEST_F(FinishedScreenTest, theButtonPutsTheSummaryDown) {
    finish(SessionMode::pomodoro);
    click(button(strings().done));
    EXPECT_TRUE(isUp<Overlay::None>());
}

TEST_F(FinishedScreenTest, aLongValueShrinksIntoItsTile) {
    speak(AppLanguage::persian);
    finish(SessionMode::pomodoro, small);
    auto* const value = itemWithText(QStringLiteral("۱ ساعت و ۴۰ دقیقه"));
    ASSERT_NE(value, nullptr);
    EXPECT_LE(value->property("contentWidth").toDouble(), value->width());
    EXPECT_EQ(value->property("lineCount").toInt(), 1);
    EXPECT_TRUE(isInside(*button(strings().done)));
}

TEST_F(FinishedScreenTest, theFirstTileStandsAtTheLeadingEdge) {
    finish(SessionMode::deep);
    const auto left = [this] { return place(*itemWithText(strings().focusTime)).left(); };
    const double english = left();
    speak(AppLanguage::persian);
    settle();
    EXPECT_GT(left(), english + 100);
}

} // namespace
} // namespace velmorin
