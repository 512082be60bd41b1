#include "tests/screens/OverlayTest.h"

namespace velmorin {
namespace {

class BackdropViewTest : public OverlayTest {
protected:
    void comeUp(QSize size = {1280, 900}) { show(QStringLiteral("BackdropView"), {{"unit", 1.0}}, size); }
};

TEST_F(BackdropViewTest, itShowsTheTimeTheRemainderASentenceAndTheGoal) {
    startSession();
    comeUp();
    EXPECT_NE(itemWithText(strings().clockLabel), nullptr);
    EXPECT_NE(itemWithText(strings().remainingInSession), nullptr);
    EXPECT_NE(itemWithText("2 hr 10 min"), nullptr);
    EXPECT_NE(itemWithText("write"), nullptr);
    EXPECT_NE(quote(), QString{});
}

TEST_F(BackdropViewTest, theLinkOpensTheExit) {
    startSession();
    comeUp();
    click(button(strings().floatingEndSession));
    EXPECT_TRUE(isUp<Overlay::EmergencyExit>());
}

TEST_F(BackdropViewTest, theBoxOpensWhatTakesAThought) {
    int opened = 0;
    stage().context.writeThought = [&opened] { ++opened; };
    startSession();
    comeUp();
    EXPECT_NE(itemWithText("Ctrl+Alt+T"), nullptr);
    click(button(strings().thoughtBoxPrompt));
    EXPECT_EQ(opened, 1);
}

TEST_F(BackdropViewTest, withoutSuchAThingThereIsNoBox) {
    startSession();
    comeUp();
    EXPECT_EQ(itemWithText(strings().thoughtBoxPrompt), nullptr);
}

TEST_F(BackdropViewTest, aPhoneThatDoesNotAnswerIsNamed) {
    stage().pairPhone();
    startSession();
    data().phoneLink().sendStart(**controller().session());
    comeUp();
    EXPECT_EQ(itemWithText(strings().phoneNoAnswerDetail), nullptr);
    advance(30);
    EXPECT_NE(itemWithText(strings().phoneNoAnswerDetail), nullptr);
}

TEST_F(BackdropViewTest, aLongGoalLeavesTheLinkOnALowScreen) {
    stage().context.writeThought = [] {};
    stage().startSession(Stage::profile(SessionMode::pomodoro), pictureTexts(AppLanguage::english).longGoal);
    comeUp(small);
    EXPECT_TRUE(isInside(*button(strings().floatingEndSession)));
}

TEST_F(BackdropViewTest, sentencesTakeTurnsEveryMinute) {
    startSession();
    comeUp();
    const QString before = quote();
    advance(59);
    EXPECT_EQ(quote(), before);
    advance(2);
    EXPECT_NE(quote(), before);
}

} // namespace
} // namespace velmorin
