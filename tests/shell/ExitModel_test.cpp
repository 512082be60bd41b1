#include "app/shell/ExitModel.h"

#include "tests/shell/ScreenModelTest.h"

#include <QObject>

namespace velmorin {
namespace {

class ExitModelTest : public ScreenModelTest {
protected:
    ExitModelTest() {
        start();
        stage.controller.beginEmergencyExit();
    }

    const QString goodReason = QStringLiteral("ten chars!");
    const QString shortReason = QStringLiteral("nine char");
};

TEST_F(ExitModelTest, aGoodReasonBeforeTheWaitIsOverWaitsWithTheCountdown) {
    const auto model = make<ExitModel>();
    model->setReason(goodReason);
    EXPECT_FALSE(model->canConfirm());
    EXPECT_EQ(model->hint().toStdString(), strings().endAvailableIn("1 min"));
}

TEST_F(ExitModelTest, theCountdownGoesDown) {
    stage.controller.setOverlay(Overlay::EmergencyExit{now() + 180.0});
    const auto model = make<ExitModel>();
    EXPECT_EQ(model->hint().toStdString(), strings().endAvailableIn("3 min"));
    advance(61);
    EXPECT_EQ(model->hint().toStdString(), strings().endAvailableIn("2 min"));
}

TEST_F(ExitModelTest, theButtonOpensExactlyWhenTheWaitEnds) {
    stage.controller.setOverlay(Overlay::EmergencyExit{now() + 60.3});
    const auto model = make<ExitModel>();
    model->setReason(goodReason);
    advance(60.2999);
    EXPECT_FALSE(model->canConfirm());
    advance(0.0002);
    EXPECT_TRUE(model->canConfirm());
    EXPECT_EQ(model->hint().toStdString(), strings().floatingEndSession);
}

TEST_F(ExitModelTest, afterTheWaitOnlyTheReasonHoldsBack) {
    const auto model = make<ExitModel>();
    model->setReason(shortReason);
    advance(60);
    EXPECT_FALSE(model->canConfirm());
    EXPECT_EQ(model->hint().toStdString(), strings().reasonTooShort);
}

TEST_F(ExitModelTest, aReasonIsJudgedAsItIsTyped) {
    const auto model = make<ExitModel>();
    advance(60);
    int changes = 0;
    QObject::connect(model.get(), &ExitModel::changed, model.get(), [&changes] { ++changes; });
    model->setReason(goodReason);
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(model->canConfirm());
    model->setReason(shortReason);
    EXPECT_FALSE(model->canConfirm());
}

TEST_F(ExitModelTest, aSecondRequestStartsTheWaitAnewAndKeepsTheReason) {
    const auto model = make<ExitModel>();
    model->setReason(goodReason);
    advance(60);
    EXPECT_TRUE(model->canConfirm());
    stage.controller.beginEmergencyExit();
    EXPECT_FALSE(model->canConfirm());
    EXPECT_EQ(model->reason(), goodReason);
}

TEST_F(ExitModelTest, confirmingEndsTheSessionForTheReason) {
    const auto model = make<ExitModel>();
    model->setReason(goodReason);
    advance(60);
    model->confirm();
    EXPECT_FALSE(stage.controller.isActive());
    EXPECT_EQ(stage.data.history()->front().exitReason, goodReason.toStdString());
}

TEST_F(ExitModelTest, confirmingTooEarlyDoesNothing) {
    const auto model = make<ExitModel>();
    model->setReason(goodReason);
    advance(59);
    model->confirm();
    EXPECT_TRUE(stage.controller.isActive());
}

TEST_F(ScreenModelTest, theExitCountsDownOnlyWhileItsScreenIsOnDisplay) {
    stage.controller.setOverlay(Overlay::EmergencyExit{now() + 180.0});
    const auto model = make<ExitModel>(Display::hidden);
    EXPECT_FALSE(isAnythingUnderWay());
    model->setShown(true);
    EXPECT_TRUE(isAnythingUnderWay());
    model->setShown(false);
    EXPECT_FALSE(isAnythingUnderWay());
}

} // namespace
} // namespace velmorin
