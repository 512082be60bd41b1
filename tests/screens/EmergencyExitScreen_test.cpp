#include "tests/screens/OverlayTest.h"

namespace velmorin {
namespace {

class EmergencyExitScreenTest : public OverlayTest {
protected:
    EmergencyExitScreenTest() {
        startSession();
        controller().beginEmergencyExit();
        showPrimary();
    }

    static constexpr double wait = 60;
};

TEST_F(EmergencyExitScreenTest, theReasonHasTheKeyboardAtOnce) {
    type(QStringLiteral("enough"));
    EXPECT_EQ(fields().front()->property("text").toString(), QStringLiteral("enough"));
}

TEST_F(EmergencyExitScreenTest, aGoodReasonBeforeTheWaitIsOverKeepsTheButtonShutWithTheCountdown) {
    type(QStringLiteral("a good reason"));
    auto* const shut = button(strings().endAvailableIn("1 min"));
    ASSERT_NE(shut, nullptr);
    EXPECT_FALSE(shut->isEnabled());
    click(shut);
    EXPECT_TRUE(controller().isActive());
}

TEST_F(EmergencyExitScreenTest, aShortReasonAfterTheWaitIsAskedForMore) {
    type(QStringLiteral("so"));
    advance(wait);
    auto* const shut = button(strings().reasonTooShort);
    ASSERT_NE(shut, nullptr);
    EXPECT_FALSE(shut->isEnabled());
}

TEST_F(EmergencyExitScreenTest, theReasonIsJudgedWithEachLetter) {
    advance(wait);
    type(QStringLiteral("nine char"));
    EXPECT_EQ(button(strings().floatingEndSession), nullptr);
    type(QStringLiteral("s"));
    EXPECT_NE(button(strings().floatingEndSession), nullptr);
    press(Qt::Key_Backspace);
    EXPECT_EQ(button(strings().floatingEndSession), nullptr);
}

TEST_F(EmergencyExitScreenTest, theQuietButtonEndsTheSession) {
    type(QStringLiteral("a good reason"));
    advance(wait);
    click(button(strings().floatingEndSession));
    EXPECT_FALSE(controller().isActive());
    EXPECT_EQ(data().history()->front().exitReason, "a good reason");
}

TEST_F(EmergencyExitScreenTest, theLargeButtonStays) {
    click(button(strings().stayAndContinue));
    EXPECT_TRUE(controller().isActive());
    EXPECT_TRUE(isUp<Overlay::None>());
}

TEST_F(EmergencyExitScreenTest, theReturnKeyInTheReasonDoesNothing) {
    type(QStringLiteral("a good reason"));
    advance(wait);
    press(Qt::Key_Return);
    press(Qt::Key_Enter);
    hold(Qt::Key_Return);
    EXPECT_TRUE(isUp<Overlay::EmergencyExit>());
    EXPECT_EQ(fields().front()->property("text").toString(), QStringLiteral("a good reason"));
}

TEST_F(EmergencyExitScreenTest, theReasonIsGoneTheNextTime) {
    type(QStringLiteral("a good reason"));
    click(button(strings().stayAndContinue));
    controller().beginEmergencyExit();
    settle();
    EXPECT_EQ(fields().front()->property("text").toString(), QString{});
}

TEST_F(EmergencyExitScreenTest, theCountdownIsWrittenInTheLanguage) {
    speak(AppLanguage::persian);
    settle();
    EXPECT_NE(button(AppStrings::persian.endAvailableIn("۱ دقیقه")), nullptr);
}

TEST_F(EmergencyExitScreenTest, everythingFitsALowScreen) {
    showPrimary(small);
    EXPECT_TRUE(isInside(*button(strings().stayAndContinue)));
    EXPECT_TRUE(isInside(*button(strings().endAvailableIn("1 min"))));
    EXPECT_TRUE(isInside(*fields().front()));
}

TEST_F(EmergencyExitScreenTest, aVeryLongReasonLeavesTheButtonsInSight) {
    showPrimary(small);
    for (int line = 0; line < 30; ++line)
        type(QStringLiteral("why not stop here, it has been a long day "));
    settle();
    EXPECT_TRUE(isInside(*button(strings().stayAndContinue)));
    EXPECT_TRUE(isInside(*item(QStringLiteral("confirm"))));
}

} // namespace
} // namespace velmorin
