#include "app/shell/FinishedModel.h"

#include "tests/shell/ScreenModelTest.h"

namespace velmorin {
namespace {

class FinishedModelTest : public ScreenModelTest {
protected:
    void finish(SessionMode mode) {
        SessionRecord record;
        record.mode = mode;
        record.focusedSeconds = 100 * 60;
        if (mode == SessionMode::pomodoro) record.completedRounds = 4;
        record.returns = 12;
        stage.controller.setOverlay(Overlay::Finished{record});
    }
};

TEST_F(FinishedModelTest, aSessionWithRoundsHasFourFigures) {
    finish(SessionMode::pomodoro);
    stage.data.addThought("one");
    const auto model = make<FinishedModel>();
    EXPECT_EQ(model->labels(), (QStringList{"Focus time", "Full rounds", "Times back to work", "Thoughts kept"}));
    EXPECT_EQ(model->values(), (QStringList{"1 hr 40 min", "4", "12", "1"}));
}

TEST_F(FinishedModelTest, aDeepSessionHasNoRoundsAndThreeFigures) {
    finish(SessionMode::deep);
    const auto model = make<FinishedModel>();
    EXPECT_EQ(model->labels(), (QStringList{"Focus time", "Times back to work", "Thoughts kept"}));
    EXPECT_EQ(model->values(), (QStringList{"1 hr 40 min", "12", "0"}));
}

TEST_F(FinishedModelTest, persianFiguresHavePersianDigits) {
    speak(AppLanguage::persian);
    finish(SessionMode::deep);
    EXPECT_EQ(make<FinishedModel>()->values().at(1), QStringLiteral("۱۲"));
}

TEST_F(FinishedModelTest, theFiguresStayOnTheWayOut) {
    finish(SessionMode::pomodoro);
    const auto model = make<FinishedModel>();
    stage.session.dismissSummary();
    EXPECT_TRUE(shows<Overlay::None>(*stage.controller.overlay()));
    EXPECT_EQ(model->values().at(2), QStringLiteral("12"));
}

} // namespace
} // namespace velmorin
