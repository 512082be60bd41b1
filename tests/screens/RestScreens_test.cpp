#include "tests/screens/OverlayTest.h"

namespace velmorin {
namespace {

/// In a locked break.
class LockedBreakScreenTest : public OverlayTest {
protected:
    void rest(QSize size = {1280, 900}) {
        startSession(SessionMode::deep);
        advance(60 * 60);
        showPrimary(size);
    }
    QStringList thoughts() const {
        QStringList found;
        for (const auto& text : texts()) {
            if (text.startsWith(QStringLiteral("thought "))) found.push_back(text);
        }
        return found;
    }
};

TEST_F(LockedBreakScreenTest, ofManyThoughtsTheFirstFiveAreShownInTheirOrder) {
    for (const char* text : {"thought 1", "thought 2", "thought 3", "thought 4", "thought 5", "thought 6"})
        data().addThought(text);
    rest();
    EXPECT_NE(itemWithText(strings().keptThoughts), nullptr);
    EXPECT_EQ(thoughts(), (QStringList{"thought 6", "thought 5", "thought 4", "thought 3", "thought 2"}));
}

TEST_F(LockedBreakScreenTest, withoutThoughtsThereIsNoBoxForThem) {
    rest();
    EXPECT_EQ(itemWithText(strings().keptThoughts), nullptr);
}

TEST_F(LockedBreakScreenTest, itSaysHowLongTheRestLasts) {
    rest();
    EXPECT_NE(itemWithText(strings().breakTime), nullptr);
    EXPECT_NE(itemWithText(strings().restLeft("5 min")), nullptr);
    advance(61);
    EXPECT_NE(itemWithText(strings().restLeft("4 min")), nullptr);
}

TEST_F(LockedBreakScreenTest, onlyTheLinkGoesBackEarly) {
    rest();
    press(Qt::Key_Return);
    press(Qt::Key_Space);
    EXPECT_TRUE(isUp<Overlay::LockedBreak>());
    click(button(strings().backEarly));
    EXPECT_TRUE(isUp<Overlay::None>());
}

TEST_F(LockedBreakScreenTest, longThoughtsLeaveTheLinkOnALowScreen) {
    const std::string text{pictureTexts(AppLanguage::english).longGoal};
    for (int count = 0; count < 5; ++count)
        data().addThought(text);
    rest(small);
    EXPECT_TRUE(isInside(*button(strings().backEarly)));
}

/// After an open break.
class BackToWorkScreenTest : public OverlayTest {
protected:
    BackToWorkScreenTest() {
        startSession();
        advance(30 * 60);
        showPrimary();
    }
};

TEST_F(BackToWorkScreenTest, itNamesTheWorkAndTheLengthOfTheRound) {
    EXPECT_NE(itemWithText(strings().thisRoundWork), nullptr);
    EXPECT_NE(itemWithText("write"), nullptr);
    EXPECT_EQ(item(QStringLiteral("detail"))->property("text").toString(), QStringLiteral("25 min"));
}

TEST_F(BackToWorkScreenTest, theReturnKeyPressesTheButton) {
    press(Qt::Key_Return);
    EXPECT_TRUE(isUp<Overlay::None>());
}

TEST_F(BackToWorkScreenTest, theEnterKeyPressesTheButton) {
    press(Qt::Key_Enter);
    EXPECT_TRUE(isUp<Overlay::None>());
}

TEST_F(BackToWorkScreenTest, aKeyThatWasHeldSinceBeforeDoesNot) {
    keyDown(Qt::Key_Return, true);
    keyDown(Qt::Key_Return, true);
    keyUp(Qt::Key_Return);
    hold(Qt::Key_Return);
    EXPECT_TRUE(isUp<Overlay::BackToWork>());
    press(Qt::Key_Return);
    EXPECT_TRUE(isUp<Overlay::None>());
}

TEST_F(BackToWorkScreenTest, otherKeysDoNothing) {
    press(Qt::Key_Space);
    press(Qt::Key_Escape);
    EXPECT_TRUE(isUp<Overlay::BackToWork>());
}

TEST_F(BackToWorkScreenTest, theButtonStartsTheRound) {
    click(button(strings().startNow));
    EXPECT_TRUE(isUp<Overlay::None>());
}

TEST_F(BackToWorkScreenTest, oneSentenceStays) {
    const QString before = quote();
    EXPECT_NE(before, QString{});
    advance(100);
    EXPECT_EQ(quote(), before);
}

} // namespace
} // namespace velmorin
