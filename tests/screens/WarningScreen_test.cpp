#include "tests/screens/OverlayTest.h"

namespace velmorin {
namespace {

class WarningScreenTest : public OverlayTest {
protected:
    static constexpr double pause = 5;

    void comeUp(QSize size = {1280, 900}, std::string_view intent = "write") {
        warn("Minesweeper", intent);
        showPrimary(size);
    }
    QQuickItem* wayBack() { return button(strings().backToWork); }
    /// The field's content.
    QString thought() const { return fields().front()->property("text").toString(); }
    double breath() const { return item(QStringLiteral("disc"))->property("breath").toDouble(); }
};

TEST_F(WarningScreenTest, itSaysWhatCanWaitAndWhatTheSessionIsFor) {
    comeUp();
    EXPECT_NE(itemWithText(strings().canWait("\u2068Minesweeper\u2069")), nullptr);
    EXPECT_NE(itemWithText(strings().thisSessionWork), nullptr);
    EXPECT_NE(itemWithText("write"), nullptr);
    EXPECT_NE(itemWithText(strings().timeLeft("2 hr 10 min")), nullptr);
    EXPECT_NE(quote(), QString{});
}

TEST_F(WarningScreenTest, theWayBackOpensWhenThePauseEnds) {
    comeUp();
    EXPECT_EQ(wayBack(), nullptr);
    ASSERT_NE(button(strings().breathing), nullptr);
    EXPECT_FALSE(button(strings().breathing)->isEnabled());
    advance(pause);
    ASSERT_NE(wayBack(), nullptr);
    EXPECT_TRUE(wayBack()->isEnabled());
}

TEST_F(WarningScreenTest, theWayBackCannotBeTakenDuringThePause) {
    comeUp();
    advance(pause - 0.5);
    click(button(strings().breathing));
    EXPECT_TRUE(isUp<Overlay::Warning>());
    advance(0.5);
    click(wayBack());
    EXPECT_TRUE(isUp<Overlay::None>());
    EXPECT_EQ((*controller().session())->returns, 1);
}

TEST_F(WarningScreenTest, theReturnKeyDoesNothing) {
    comeUp();
    advance(pause);
    press(Qt::Key_Return);
    press(Qt::Key_Enter);
    hold(Qt::Key_Return);
    EXPECT_TRUE(isUp<Overlay::Warning>());
    EXPECT_TRUE(data().openThoughts().empty());
}

TEST_F(WarningScreenTest, whatIsTypedGoesIntoTheFieldAndPressesNothing) {
    comeUp();
    advance(pause);
    type(QStringLiteral("so what "));
    press(Qt::Key_Space);
    press(Qt::Key_Escape);
    EXPECT_TRUE(isUp<Overlay::Warning>());
    EXPECT_EQ(thought(), QStringLiteral("so what  "));
}

TEST_F(WarningScreenTest, returnInTheFieldKeepsTheThoughtAndSaysSoForTwoSeconds) {
    comeUp();
    type(QStringLiteral("call home"));
    press(Qt::Key_Return);
    EXPECT_EQ(data().openThoughts().front().text, "call home");
    EXPECT_EQ(thought(), QString{});
    EXPECT_NE(button(strings().saved), nullptr);
    advance(2);
    EXPECT_EQ(button(strings().saved), nullptr);
    EXPECT_NE(button(strings().save), nullptr);
}

TEST_F(WarningScreenTest, theButtonKeepsTheThoughtAsWell) {
    comeUp();
    type(QStringLiteral("call home"));
    click(button(strings().save));
    EXPECT_EQ(data().openThoughts().front().text, "call home");
    EXPECT_EQ(thought(), QString{});
}

TEST_F(WarningScreenTest, blanksAreNoThoughtAndStay) {
    comeUp();
    type(QStringLiteral("   "));
    press(Qt::Key_Return);
    EXPECT_TRUE(data().openThoughts().empty());
    EXPECT_EQ(thought(), QStringLiteral("   "));
}

TEST_F(WarningScreenTest, theFieldKeepsNothingForTheNextWarning) {
    comeUp();
    type(QStringLiteral("half a tho"));
    advance(pause);
    click(wayBack());
    advance(3);
    stage().push("Other");
    settle();
    EXPECT_TRUE(isUp<Overlay::Warning>());
    EXPECT_EQ(thought(), QString{});
}

TEST_F(WarningScreenTest, theWayBackIsTakenByKeysOnPurposeOnly) {
    comeUp();
    advance(pause);
    wayBack()->forceActiveFocus(Qt::TabFocusReason);
    hold(Qt::Key_Return);
    hold(Qt::Key_Space);
    keyUp(Qt::Key_Return);
    EXPECT_TRUE(isUp<Overlay::Warning>());
    press(Qt::Key_Space);
    EXPECT_TRUE(isUp<Overlay::None>());
}

TEST_F(WarningScreenTest, theTabKeyReachesTheWayBackOnceItIsOpen) {
    comeUp();
    advance(pause);
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), wayBack());
    press(Qt::Key_Return);
    EXPECT_TRUE(isUp<Overlay::None>());
}

TEST_F(WarningScreenTest, theTabKeyPassesTheWayBackWhileItIsClosed) {
    comeUp();
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), button(strings().endSession));
}

TEST_F(WarningScreenTest, theLinkOpensTheExit) {
    comeUp();
    click(button(strings().endSession));
    EXPECT_TRUE(isUp<Overlay::EmergencyExit>());
    EXPECT_NE(itemWithText(strings().endQuestion), nullptr);
}

TEST_F(WarningScreenTest, theBarFillsFromTheLeadingEdge) {
    comeUp();
    advance(2.75); // half the pause, and what the bar needs to get there
    const auto brightness = [this](double share) {
        const QRectF bar = place(*button(strings().breathing));
        return qGray(
            picture().pixel(static_cast<int>(bar.left() + share * bar.width()), static_cast<int>(bar.top()) + 6));
    };
    EXPECT_GT(brightness(0.2), brightness(0.8) + 20);
    speak(AppLanguage::persian);
    settle();
    EXPECT_GT(brightness(0.8), brightness(0.2) + 20);
}

TEST_F(WarningScreenTest, oneBreathInAndOutTakesEightSeconds) {
    comeUp();
    EXPECT_EQ(breath(), 0);
    advance(4);
    EXPECT_NEAR(breath(), 1, 0.02);
    advance(4);
    EXPECT_NEAR(breath(), 0, 0.02);
    advance(2);
    EXPECT_NEAR(breath(), 0.5, 0.05);
}

TEST_F(WarningScreenTest, withoutMotionTheCircleStaysSmall) {
    Appearance::shared().setReducesMotion(true);
    comeUp();
    advance(4);
    EXPECT_EQ(breath(), 0);
    const QImage before = picture().copy(place(*item(QStringLiteral("disc"))).toRect());
    advance(1);
    EXPECT_EQ(picture().copy(place(*item(QStringLiteral("disc"))).toRect()), before);
}

TEST_F(WarningScreenTest, theBreathEndsWhenMotionIsNotWantedAnyMore) {
    comeUp();
    advance(3);
    Appearance::shared().setReducesMotion(true);
    EXPECT_EQ(breath(), 0);
    advance(3);
    EXPECT_EQ(breath(), 0);
}

TEST_F(WarningScreenTest, nothingMovesBehindAHiddenWindow) {
    comeUp();
    advance(1);
    const QString before = quote();
    view().hide();
    settle();
    advance(60);
    EXPECT_EQ(breath(), 0);
    EXPECT_EQ(quote(), before);
    EXPECT_NE(button(strings().breathing), nullptr);
    view().show();
    settle();
    EXPECT_NE(wayBack(), nullptr);
}

/// Each language on its own.
class WarningScreenLanguageTest : public WarningScreenTest, public ::testing::WithParamInterface<AppLanguage> {};

TEST_P(WarningScreenLanguageTest, aLongGoalLeavesTheButtonsOnALowScreen) {
    speak(GetParam());
    comeUp(small, pictureTexts(GetParam()).longGoal);
    advance(pause);
    EXPECT_TRUE(isInside(*wayBack()));
    EXPECT_TRUE(isInside(*button(strings().endSession)));
    EXPECT_TRUE(isInside(*fields().front())) << "what has the keyboard comes into view";
}

TEST_P(WarningScreenLanguageTest, anOrdinaryGoalFitsALowScreen) {
    speak(GetParam());
    comeUp(small);
    EXPECT_TRUE(isInside(*item(QStringLiteral("disc"))));
    EXPECT_TRUE(isInside(*fields().front()));
}

INSTANTIATE_TEST_SUITE_P(Languages, WarningScreenLanguageTest, ::testing::ValuesIn(allCases<AppLanguage>()),
                         [](const auto& language) { return std::string{rawValue(language.param)}; });

} // namespace
} // namespace velmorin
