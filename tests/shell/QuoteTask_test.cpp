#include "app/shell/QuoteTask.h"

#include "tests/shell/ScreenModelTest.h"

namespace velmorin {
namespace {

class QuoteTaskTest : public ScreenModelTest {
protected:
    QuoteTaskTest() {
        stage.desktop.journal.onEvent = [this](const SimulatedEvent& event) {
            if (event.name == "save" && event.details.find(AppData::quoteDeckFile) != std::string::npos) ++m_saves;
        };
    }

    /// How often the deck was written.
    int saves() const { return m_saves; }

    /// A task that has not begun.
    std::unique_ptr<QuoteTask> task(QuoteTask::Category category, QuoteTask::Category alternate, double rotateEvery) {
        auto made = std::make_unique<QuoteTask>();
        made->setCategory(category);
        made->setAlternate(alternate);
        made->setRotateEvery(rotateEvery);
        return made;
    }

private:
    int m_saves = 0;
};

TEST_F(QuoteTaskTest, theFirstSentenceIsDrawnAsTheScreenComesUp) {
    const auto quotes = task(QuoteTask::Exit, QuoteTask::None, 0);
    complete(*quotes);
    EXPECT_TRUE(isFrom(quotes->text(), QuoteCategory::exit));
    EXPECT_FALSE(quotes->hasRotated());
    EXPECT_EQ(saves(), 1);
}

TEST_F(QuoteTaskTest, aScreenThatIsAwayDrawsNone) {
    const auto quotes = task(QuoteTask::Exit, QuoteTask::None, 10);
    complete(*quotes, Display::hidden);
    advance(60);
    EXPECT_EQ(quotes->text(), QString{});
    EXPECT_EQ(saves(), 0);
    quotes->setShown(true);
    EXPECT_TRUE(isFrom(quotes->text(), QuoteCategory::exit));
}

TEST_F(QuoteTaskTest, withoutRotationTheFirstSentenceStays) {
    const auto quotes = task(QuoteTask::Exit, QuoteTask::None, 0);
    complete(*quotes);
    EXPECT_FALSE(isAnythingUnderWay());
    advance(3600);
    EXPECT_EQ(saves(), 1);
}

TEST_F(QuoteTaskTest, anotherSentenceComesEachTimeThePeriodHasPassedAndTheDeckIsSaved) {
    const auto quotes = task(QuoteTask::Rest, QuoteTask::None, 30);
    complete(*quotes);
    QString before = quotes->text();
    for (int turn = 2; turn < 6; ++turn) {
        advance(29.9);
        EXPECT_EQ(quotes->text(), before);
        advance(0.1);
        EXPECT_NE(quotes->text(), before);
        EXPECT_TRUE(isFrom(quotes->text(), QuoteCategory::rest));
        EXPECT_TRUE(quotes->hasRotated());
        EXPECT_EQ(saves(), turn);
        before = quotes->text();
    }
}

TEST_F(QuoteTaskTest, anAlternateTakesTurnsBeginningWithTheFirstChange) {
    const auto quotes = task(QuoteTask::Urge, QuoteTask::Returning, 60);
    complete(*quotes);
    EXPECT_TRUE(isFrom(quotes->text(), QuoteCategory::urge));
    for (const auto expected : {QuoteCategory::returning, QuoteCategory::urge, QuoteCategory::returning}) {
        advance(60);
        EXPECT_TRUE(isFrom(quotes->text(), expected));
    }
}

TEST_F(QuoteTaskTest, aScreenThatGoesStopsItsSentences) {
    const auto quotes = task(QuoteTask::Urge, QuoteTask::None, 25);
    complete(*quotes);
    const QString last = quotes->text();
    quotes->setShown(false);
    EXPECT_FALSE(isAnythingUnderWay());
    advance(100);
    EXPECT_EQ(quotes->text(), last);
    EXPECT_EQ(saves(), 1);
}

TEST_F(QuoteTaskTest, nothingIsDrawnForATaskThatIsGone) {
    complete(*task(QuoteTask::Urge, QuoteTask::None, 25));
    advance(100);
    EXPECT_EQ(saves(), 1);
    EXPECT_FALSE(isAnythingUnderWay());
}

TEST_F(QuoteTaskTest, anotherMomentIsOneNewBeginning) {
    const auto quotes = task(QuoteTask::Urge, QuoteTask::Returning, 60);
    complete(*quotes);
    advance(70);
    EXPECT_TRUE(quotes->hasRotated());
    quotes->setCategory(QuoteTask::Rest);
    quotes->setAlternate(QuoteTask::None);
    settle();
    EXPECT_TRUE(isFrom(quotes->text(), QuoteCategory::rest));
    EXPECT_FALSE(quotes->hasRotated());
    EXPECT_EQ(saves(), 3);
    advance(59);
    EXPECT_EQ(saves(), 3);
    advance(1);
    EXPECT_EQ(saves(), 4);
    EXPECT_TRUE(isFrom(quotes->text(), QuoteCategory::rest));
}

TEST_F(QuoteTaskTest, aMomentThatChangesAsTheScreenGoesDrawsNone) {
    const auto quotes = task(QuoteTask::Finish, QuoteTask::None, 40);
    complete(*quotes);
    quotes->setCategory(QuoteTask::Urge);
    quotes->setShown(false);
    settle();
    EXPECT_TRUE(isFrom(quotes->text(), QuoteCategory::finish));
    EXPECT_EQ(saves(), 1);
}

TEST_F(QuoteTaskTest, anotherLanguageIsThatOfTheNextSentence) {
    const auto quotes = task(QuoteTask::Urge, QuoteTask::None, 25);
    complete(*quotes);
    speak(AppLanguage::persian);
    settle();
    EXPECT_TRUE(isFrom(quotes->text(), QuoteCategory::urge, AppLanguage::english));
    advance(25);
    EXPECT_TRUE(isFrom(quotes->text(), QuoteCategory::urge, AppLanguage::persian));
}

} // namespace
} // namespace velmorin
