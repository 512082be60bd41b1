#include "app/shell/BackdropModel.h"

#include "core/language/Formatting.h"
#include "tests/shell/ScreenModelTest.h"

#include <QObject>

namespace velmorin {
namespace {

class BackdropModelTest : public ScreenModelTest {
protected:
    QString clockNow() {
        return QString::fromStdString(timeOfDay(AppLanguage::english, now(), stage.context.calendar));
    }
};

TEST_F(BackdropModelTest, theClockMovesOnEveryFiveSeconds) {
    start();
    const auto model = make<BackdropModel>();
    const double first = model->date();
    EXPECT_EQ(first, now().secondsSince2001);
    EXPECT_EQ(model->timeOfDay(), clockNow());
    advance(4.9);
    EXPECT_EQ(model->date(), first);
    advance(0.1);
    EXPECT_EQ(model->date(), first + 5);
    advance(60);
    EXPECT_EQ(model->timeOfDay(), clockNow());
}

TEST_F(BackdropModelTest, theRemainderIsThatOfTheWholeSessionAtThisMoment) {
    start();
    const auto model = make<BackdropModel>();
    EXPECT_EQ(model->remaining(), QStringLiteral("2 hr 10 min"));
    EXPECT_NEAR(model->remainingFraction(), 1 - 3.0 / (130 * 60), 1e-9);
    advance(60 * 60);
    EXPECT_EQ(model->remaining(), QStringLiteral("1 hr 10 min"));
}

TEST_F(BackdropModelTest, withoutASessionThereIsNoRemainder) {
    const auto model = make<BackdropModel>();
    EXPECT_EQ(model->remaining(), QString{});
    EXPECT_EQ(model->remainingFraction(), -1);
    EXPECT_NE(model->timeOfDay(), QString{});
}

TEST_F(BackdropModelTest, duringWorkUrgesAndReturnsTakeTurns) {
    start();
    const auto model = make<BackdropModel>();
    EXPECT_EQ(model->category(), QuoteTask::Urge);
    EXPECT_EQ(model->alternate(), QuoteTask::Returning);
}

TEST_F(BackdropModelTest, aLockedRestHasSentencesOfItsOwn) {
    start(SessionMode::deep);
    const auto model = make<BackdropModel>();
    int changes = 0;
    QObject::connect(model.get(), &BackdropModel::quotesChanged, model.get(), [&changes] { ++changes; });
    advance(60 * 60 - 3);
    EXPECT_EQ(model->category(), QuoteTask::Rest);
    EXPECT_EQ(model->alternate(), QuoteTask::None);
    EXPECT_EQ(changes, 1);
}

TEST_F(BackdropModelTest, nothingMovesWhileItIsAway) {
    const auto model = make<BackdropModel>();
    EXPECT_TRUE(isAnythingUnderWay());
    model->setShown(false);
    EXPECT_FALSE(isAnythingUnderWay());
}

TEST_F(BackdropModelTest, aThoughtCanBeWrittenWhereSomethingTakesIt) {
    EXPECT_FALSE(make<BackdropModel>()->takesThoughts());
    int opened = 0;
    stage.context.writeThought = [&opened] { ++opened; };
    const auto model = make<BackdropModel>();
    EXPECT_TRUE(model->takesThoughts());
    model->writeThought();
    EXPECT_EQ(opened, 1);
}

TEST_F(BackdropModelTest, theKeysForAThoughtAreWrittenInTheLanguage) {
    const auto model = make<BackdropModel>();
    EXPECT_EQ(model->thoughtKeys(), QStringLiteral("Ctrl+Alt+T"));
    speak(AppLanguage::german);
    EXPECT_EQ(model->thoughtKeys(), QStringLiteral("Strg+Alt+T"));
    stage.context.thoughtKeys = nullptr;
    EXPECT_EQ(model->thoughtKeys(), QString{});
}

} // namespace
} // namespace velmorin
