#include "app/shell/WarningModel.h"

#include "tests/shell/ScreenModelTest.h"

namespace velmorin {
namespace {

class WarningModelTest : public ScreenModelTest {
protected:
    void warn(double pause) { stage.controller.setOverlay(Overlay::Warning{{"Game", 1, now(), now() + pause}}); }
};

TEST_F(WarningModelTest, aPauseOfNoLengthIsOverAtOnce) {
    warn(0);
    const auto model = make<WarningModel>();
    EXPECT_TRUE(model->isReady());
    EXPECT_EQ(model->progress(), 1);
}

TEST_F(WarningModelTest, theWayBackOpensExactlyWhenThePauseEnds) {
    warn(1.1);
    const auto model = make<WarningModel>();
    advance(1.0999);
    EXPECT_FALSE(model->isReady());
    advance(0.0002);
    EXPECT_TRUE(model->isReady());
}

TEST_F(WarningModelTest, theFirstPauseOfASessionTakesFiveSeconds) {
    start();
    stage.push("Game");
    const auto model = make<WarningModel>();
    advance(4.999);
    EXPECT_FALSE(model->isReady());
    advance(0.001);
    EXPECT_TRUE(model->isReady());
}

TEST_F(WarningModelTest, thePauseFillsEveryQuarterOfASecond) {
    warn(5);
    const auto model = make<WarningModel>();
    EXPECT_EQ(model->progress(), 0);
    advance(0.24);
    EXPECT_EQ(model->progress(), 0);
    advance(0.01);
    EXPECT_DOUBLE_EQ(model->progress(), 0.05);
    advance(2.25);
    EXPECT_DOUBLE_EQ(model->progress(), 0.5);
}

TEST_F(WarningModelTest, aVeryShortPauseFillsAsOneOfATenthOfASecond) {
    warn(0.05);
    const auto model = make<WarningModel>();
    stage.desktop.time.setClock(0.02);
    const auto later = make<WarningModel>();
    EXPECT_NEAR(later->progress(), 0.2, 1e-6);
}

TEST_F(WarningModelTest, aScreenThatComesUpLateFindsWhatHasPassed) {
    warn(5);
    advance(2);
    EXPECT_DOUBLE_EQ(make<WarningModel>()->progress(), 0.4);
}

TEST_F(WarningModelTest, aClockThatIsSetBackEmptiesTheBar) {
    warn(5);
    const auto model = make<WarningModel>();
    advance(2);
    stage.desktop.time.setClock(-60);
    advance(0.25);
    EXPECT_EQ(model->progress(), 0);
    EXPECT_FALSE(model->isReady());
}

TEST_F(WarningModelTest, nothingMovesWhileTheScreenIsAway) {
    warn(5);
    const auto model = make<WarningModel>();
    EXPECT_TRUE(isAnythingUnderWay());
    model->setShown(false);
    EXPECT_FALSE(isAnythingUnderWay());
    advance(2);
    model->setShown(true);
    EXPECT_DOUBLE_EQ(model->progress(), 0.4);
}

TEST_F(WarningModelTest, nothingMovesAnyMoreOnceThePauseIsOver) {
    warn(5);
    const auto model = make<WarningModel>();
    advance(5);
    EXPECT_TRUE(model->isReady());
    EXPECT_FALSE(isAnythingUnderWay());
}

TEST_F(WarningModelTest, theWayBackIsClosedDuringThePause) {
    start();
    stage.push("Game");
    const auto model = make<WarningModel>();
    advance(4.9);
    model->returnToWork();
    EXPECT_TRUE(shows<Overlay::Warning>(*stage.controller.overlay()));
    advance(0.1);
    model->returnToWork();
    EXPECT_TRUE(shows<Overlay::None>(*stage.controller.overlay()));
    EXPECT_EQ((*stage.controller.session())->returns, 1);
}

TEST_F(WarningModelTest, whatStaysShownOnTheWayOutIsTheLastWarning) {
    start();
    stage.push("Game");
    const auto model = make<WarningModel>();
    const QString before = model->canWait();
    advance(5);
    model->returnToWork();
    EXPECT_EQ(model->canWait(), before);
    EXPECT_TRUE(model->isReady());
}

TEST_F(WarningModelTest, theNameOfTheTargetDoesNotTurnTheSentenceAround) {
    speak(AppLanguage::persian);
    warn(5);
    EXPECT_EQ(make<WarningModel>()->canWait().toStdString(), strings().canWait("\u2068Game\u2069"));
}

TEST_F(WarningModelTest, theTimeLeftIsThatOfTheWholeSession) {
    start();
    stage.push("Game");
    const auto model = make<WarningModel>();
    EXPECT_EQ(model->timeLeft().toStdString(), strings().timeLeft("2 hr 10 min"));
}

TEST_F(WarningModelTest, withoutASessionTheTimeLeftShowsNothing) {
    warn(5);
    EXPECT_EQ(make<WarningModel>()->timeLeft(), QString{});
}

TEST_F(WarningModelTest, theTextsFollowTheLanguageAtOnce) {
    start();
    stage.push("Game");
    const auto model = make<WarningModel>();
    speak(AppLanguage::german);
    EXPECT_EQ(model->canWait().toStdString(), AppStrings::german.canWait("\u2068Game\u2069"));
}

} // namespace
} // namespace velmorin
