#include "tests/screens/OverlayTest.h"

#include <algorithm>

namespace velmorin {
namespace {

using SecondaryScreenTest = OverlayTest;

bool isFrom(const QString& text, QuoteCategory category) {
    const auto known = sentences(category, AppLanguage::english);
    return std::ranges::find(known, text.toStdString()) != known.end();
}

TEST_F(SecondaryScreenTest, itShowsASentenceAndTheGoalAndNothingElse) {
    warn();
    showSecondary();
    EXPECT_TRUE(isFrom(quote(), QuoteCategory::urge));
    EXPECT_EQ(texts(), (QStringList{quote(), "write"}));
    EXPECT_TRUE(fields().empty());
}

TEST_F(SecondaryScreenTest, nothingOnItTakesAKeyOrAClick) {
    startSession();
    advance(30 * 60);
    showSecondary();
    press(Qt::Key_Return);
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    click(item(QStringLiteral("quote")));
    EXPECT_TRUE(isUp<Overlay::BackToWork>());
}

TEST_F(SecondaryScreenTest, theSentenceFollowsTheState) {
    warn();
    showSecondary();
    controller().beginEmergencyExit();
    settle();
    EXPECT_TRUE(isFrom(quote(), QuoteCategory::exit));
}

TEST_F(SecondaryScreenTest, theSentenceStaysAsTheWindowsGo) {
    startSession(SessionMode::deep);
    advance(180 * 60);
    showSecondary();
    const QString before = quote();
    EXPECT_TRUE(isFrom(before, QuoteCategory::finish));
    stage().session.dismissSummary();
    settle();
    EXPECT_EQ(quote(), before);
}

TEST_F(SecondaryScreenTest, anotherSentenceComesEveryFortySeconds) {
    warn();
    showSecondary();
    const QString before = quote();
    advance(39.5);
    EXPECT_EQ(quote(), before);
    advance(1);
    EXPECT_NE(quote(), before);
}

TEST_F(SecondaryScreenTest, withoutAGoalThereIsOnlyTheSentence) {
    warn("Minesweeper", "");
    showSecondary();
    EXPECT_EQ(texts().size(), 1);
}

/// How one sentence gives way to another, seen on any screen.
class RotatingQuoteTest : public OverlayTest {
protected:
    static constexpr double period = 25; // of a warning

    double opacity() const { return item(QStringLiteral("quote"))->opacity(); }
};

TEST_F(RotatingQuoteTest, aSentenceFadesInOverTheFormerOne) {
    warn();
    showPrimary();
    EXPECT_EQ(opacity(), 1);
    const QString before = quote();
    advance(period);
    EXPECT_NE(quote(), before);
    EXPECT_LT(opacity(), 0.2);
    advance(0.7);
    EXPECT_NEAR(opacity(), 0.5, 0.1);
    EXPECT_NE(itemWithText(before), nullptr);
    advance(0.8);
    EXPECT_EQ(opacity(), 1);
    EXPECT_EQ(itemWithText(before), nullptr);
}

TEST_F(RotatingQuoteTest, withoutMotionTheNextSentenceIsThereAtOnce) {
    Appearance::shared().setReducesMotion(true);
    warn();
    showPrimary();
    const QString before = quote();
    advance(period);
    EXPECT_NE(quote(), before);
    EXPECT_EQ(opacity(), 1);
    EXPECT_EQ(itemWithText(before), nullptr);
}

TEST_F(RotatingQuoteTest, whatStandsBelowStaysWhereItIs) {
    warn();
    showPrimary();
    const double before = place(*fields().front()).top();
    for (int turn = 0; turn < 6; ++turn) {
        advance(period);
        EXPECT_EQ(place(*fields().front()).top(), before);
    }
}

} // namespace
} // namespace velmorin
