#include "app/platform/simulated/VirtualTime.h"

#include <gmock/gmock.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace velmorin {
namespace {

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

constexpr Date start{1000};

class VirtualTimeTest : public ::testing::Test {
protected:
    /// A call that writes down a word and the moment.
    std::function<void()> noting(const std::string& word) {
        return [this, word] { notes.emplace_back(word, time.elapsed()); };
    }
    std::vector<std::string> words() const {
        std::vector<std::string> found;
        for (const auto& note : notes)
            found.push_back(note.first);
        return found;
    }

    VirtualTime time{start};
    std::vector<std::pair<std::string, double>> notes;
};

TEST_F(VirtualTimeTest, timeStandsStillUntilItIsLet) {
    EXPECT_EQ(time.now(), start);
    EXPECT_EQ(time.elapsed(), 0);
    time.advance(2.5);
    EXPECT_EQ(time.now(), start + 2.5);
    time.sleep(10);
    EXPECT_EQ(time.now(), start + 12.5);
    EXPECT_EQ(time.elapsed(), 12.5);
}

TEST_F(VirtualTimeTest, timersFireAtTheirDeadlinesInTheirOrder) {
    const auto late = time.after(3, noting("late"));
    const auto early = time.after(1.5, noting("early"));
    time.advance(10);
    EXPECT_THAT(notes, ElementsAre(Pair("early", 1.5), Pair("late", 3.0)));
    EXPECT_EQ(time.elapsed(), 10);
}

TEST_F(VirtualTimeTest, aTimerFiresAtTheEndOfTheStretchThatReachesIt) {
    const auto timer = time.after(2, noting("timer"));
    time.advance(1.999);
    EXPECT_THAT(notes, IsEmpty());
    time.advanceUntil(2);
    EXPECT_THAT(words(), ElementsAre("timer"));
}

TEST_F(VirtualTimeTest, equalDeadlinesFireInTheOrderOfScheduling) {
    const auto first = time.after(2, noting("first"));
    const auto second = time.after(2, noting("second"));
    time.advance(1);
    const auto third = time.after(1, noting("third"));
    time.advance(5);
    EXPECT_THAT(words(), ElementsAre("first", "second", "third"));
}

TEST_F(VirtualTimeTest, aRepeatingTimerIsScheduledAnewBeforeEachOfItsCalls) {
    // The ticker asks for its second call at 1, before its first call asks for the other timer: both fall on 2.
    Cancellable other;
    const auto ticker = time.every(1, [&] {
        notes.emplace_back("tick", time.elapsed());
        if (notes.size() == 1) other = time.after(1, noting("other"));
    });
    time.advance(2);
    EXPECT_THAT(notes, ElementsAre(Pair("tick", 1.0), Pair("tick", 2.0), Pair("other", 2.0)));
}

TEST_F(VirtualTimeTest, aRepeatingTimerComesAfterWhatWasAskedForBeforeItFiredLast) {
    const auto other = time.after(2, noting("other"));
    const auto ticker = time.every(1, noting("tick"));
    time.advance(2);
    EXPECT_THAT(words(), ElementsAre("tick", "other", "tick"));
}

TEST_F(VirtualTimeTest, aRepeatingTimerMayCallItselfOff) {
    Cancellable ticker;
    ticker = time.every(1, [&] {
        notes.emplace_back("tick", time.elapsed());
        if (notes.size() == 2) ticker.cancel();
    });
    time.advance(10);
    EXPECT_THAT(words(), ElementsAre("tick", "tick"));
    EXPECT_EQ(time.nextDeadline(), std::nullopt);
}

TEST_F(VirtualTimeTest, aCallMayCancelAnotherOfTheSameMoment) {
    Cancellable second;
    const auto first = time.after(1, [&] { second.cancel(); });
    second = time.after(1, noting("second"));
    time.advance(5);
    EXPECT_THAT(notes, IsEmpty());
}

TEST_F(VirtualTimeTest, cancellingWhatHasFiredDoesNothing) {
    auto timer = time.after(1, noting("timer"));
    time.advance(2);
    timer.cancel();
    const auto other = time.after(1, noting("other"));
    time.advance(2);
    EXPECT_THAT(words(), ElementsAre("timer", "other"));
}

TEST_F(VirtualTimeTest, nothingFiresInASleepAndWhatIsOverdueFiresOnWaking) {
    const auto late = time.after(4, noting("late"));
    const auto early = time.after(2, noting("early"));
    const auto later = time.after(11, noting("later"));
    time.sleep(10);
    EXPECT_THAT(notes, ElementsAre(Pair("early", 10.0), Pair("late", 10.0)));
    time.advance(1);
    EXPECT_THAT(words(), ElementsAre("early", "late", "later"));
}

TEST_F(VirtualTimeTest, aRepeatingTimerFiresOnceOnWakingAndItsPeriodRunsOnFromThere) {
    const auto ticker = time.every(1, noting("tick"));
    time.advance(0.5);
    time.sleep(7);
    EXPECT_THAT(notes, ElementsAre(Pair("tick", 7.5)));
    time.advance(2);
    EXPECT_THAT(notes, ElementsAre(Pair("tick", 7.5), Pair("tick", 8.5), Pair("tick", 9.5)));
}

TEST_F(VirtualTimeTest, aTimerThatFallsOnTheWakingFires) {
    const auto timer = time.after(3, noting("timer"));
    time.sleep(3);
    EXPECT_THAT(notes, ElementsAre(Pair("timer", 3.0)));
}

TEST_F(VirtualTimeTest, aTimerWithoutADelayComesAfterThoseThatAreOverdue) {
    const auto overdue = time.after(2, noting("overdue"));
    const auto first = time.after(1, [&] { time.after(0, noting("at once")).detach(); });
    time.sleep(5);
    EXPECT_THAT(notes, ElementsAre(Pair("overdue", 5.0), Pair("at once", 5.0)));
}

TEST_F(VirtualTimeTest, whatIsPostedNextComesBeforeWhatIsPosted) {
    time.post(noting("posted")).detach();
    time.postNext(noting("next"));
    time.settle();
    EXPECT_THAT(words(), ElementsAre("next", "posted"));
}

TEST_F(VirtualTimeTest, settingTheClockMovesTheDateOnly) {
    const auto timer = time.after(5, noting("timer"));
    time.setClock(-3600);
    EXPECT_EQ(time.now(), start + -3600);
    EXPECT_EQ(time.elapsed(), 0);
    time.setClock(7200);
    EXPECT_THAT(notes, IsEmpty());
    time.advance(5);
    EXPECT_THAT(notes, ElementsAre(Pair("timer", 5.0)));
    EXPECT_EQ(time.now(), start + 3605);
}

TEST_F(VirtualTimeTest, postedCallsComeAtTheSameMomentInTheirOrderBeforeAnyTimer) {
    const auto timer = time.after(1, noting("timer"));
    const auto same = time.after(1, noting("same moment"));
    const auto posting = time.after(0.5, [&] {
        time.post(noting("posted")).detach();
        time.after(0, noting("after zero")).detach();
        time.after(-1, noting("after less")).detach();
        time.post([&] {
                notes.emplace_back("last", time.elapsed());
                time.post(noting("called forth")).detach();
            })
            .detach();
        notes.emplace_back("call", time.elapsed());
    });
    time.advance(1);
    EXPECT_THAT(words(), ElementsAre("call", "posted", "last", "called forth", "after zero", "after less", "timer",
                                     "same moment"));
    EXPECT_THAT(notes[5], Pair("after less", 0.5));
}

TEST_F(VirtualTimeTest, whatATimerPostsComesBeforeTheNextTimerOfTheSameMoment) {
    const auto first = time.after(1, [&] { time.post(noting("posted")).detach(); });
    const auto second = time.after(1, noting("second"));
    time.advance(1);
    EXPECT_THAT(words(), ElementsAre("posted", "second"));
}

TEST_F(VirtualTimeTest, whatWasPostedBeforeASleepComesBeforeIt) {
    time.post(noting("posted")).detach();
    time.sleep(5);
    EXPECT_THAT(notes, ElementsAre(Pair("posted", 0.0)));
}

TEST_F(VirtualTimeTest, aPostedCallCanBeCancelledByAnother) {
    Cancellable second;
    const auto first = time.post([&] { second.cancel(); });
    second = time.post(noting("second"));
    time.settle();
    EXPECT_THAT(notes, IsEmpty());
}

TEST_F(VirtualTimeTest, callsWithoutEndAreAnError) {
    std::function<void()> again = [&] { time.post(again).detach(); };
    time.post(again).detach();
    EXPECT_THROW(time.settle(), std::runtime_error);
}

TEST_F(VirtualTimeTest, theNextDeadlineIsThatOfTheFirstTimer) {
    EXPECT_EQ(time.nextDeadline(), std::nullopt);
    const auto late = time.after(3, noting("late"));
    auto early = time.after(2, noting("early"));
    EXPECT_EQ(time.nextDeadline(), 2);
    early.cancel();
    EXPECT_EQ(time.nextDeadline(), 3);
}

TEST_F(VirtualTimeTest, cancellingAfterTimeItselfHasGoneIsHarmless) {
    Cancellable timer;
    Cancellable posted;
    {
        VirtualTime gone{start};
        timer = gone.after(1, noting("timer"));
        posted = gone.post(noting("posted"));
    }
    timer.cancel();
    posted.cancel();
    EXPECT_THAT(notes, IsEmpty());
}

TEST_F(VirtualTimeTest, threeHoursOfTicksFallOnWholeSeconds) {
    const auto ticker = time.every(1, noting("tick"));
    time.advance(10'800);
    ASSERT_EQ(notes.size(), 10'800U);
    EXPECT_THAT(notes.back().second, DoubleNear(10'800, 0));
}

} // namespace
} // namespace velmorin
