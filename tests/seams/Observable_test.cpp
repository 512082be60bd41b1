#include "app/seams/Observable.h"

#include <gmock/gmock.h>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class WatchersTest : public ::testing::Test {
protected:
    /// A watcher that is noted under a name.
    Cancellable add(const char* name) {
        return watchers.add([this, name] { heard.push_back(name); });
    }

    Watchers watchers;
    std::vector<std::string> heard;
};

TEST_F(WatchersTest, areCalledInTheOrderInWhichTheyCame) {
    const auto first = add("first");
    auto second = add("second");
    const auto third = add("third");
    watchers.notify();
    EXPECT_THAT(heard, ElementsAre("first", "second", "third"));
    heard.clear();
    second = add("fourth");
    watchers.notify();
    EXPECT_THAT(heard, ElementsAre("first", "third", "fourth"));
}

TEST_F(WatchersTest, oneThatHasGoneHearsNothing) {
    auto gone = add("gone");
    const auto stays = add("stays");
    gone.cancel();
    watchers.notify();
    EXPECT_THAT(heard, ElementsAre("stays"));
}

TEST_F(WatchersTest, oneThatComesDuringACallHearsOfLaterOnesOnly) {
    std::vector<Cancellable> newcomers;
    const auto first = watchers.add([&] {
        heard.emplace_back("first");
        if (newcomers.empty()) newcomers.push_back(add("newcomer"));
    });
    const auto second = add("second");
    watchers.notify();
    EXPECT_THAT(heard, ElementsAre("first", "second"));
    heard.clear();
    watchers.notify();
    EXPECT_THAT(heard, ElementsAre("first", "second", "newcomer"));
}

TEST_F(WatchersTest, oneMayGoDuringItsOwnCall) {
    Cancellable once;
    once = watchers.add([&, words = std::string{"a text too long to be held in place, once"}] {
        once.cancel();
        heard.push_back(words);
    });
    const auto second = add("second");
    watchers.notify();
    watchers.notify();
    EXPECT_THAT(heard, ElementsAre("a text too long to be held in place, once", "second", "second"));
}

TEST_F(WatchersTest, oneThatIsSentAwayByAnEarlierOneIsNotCalledAnyMore) {
    Cancellable second;
    const auto first = watchers.add([&] {
        heard.emplace_back("first");
        second.cancel();
    });
    second = add("second");
    const auto third = add("third");
    watchers.notify();
    EXPECT_THAT(heard, ElementsAre("first", "third"));
}

TEST_F(WatchersTest, oneMaySendEarlierOnesAway) {
    auto first = add("first");
    const auto second = watchers.add([&] {
        heard.emplace_back("second");
        first.cancel();
    });
    const auto third = add("third");
    watchers.notify();
    watchers.notify();
    EXPECT_THAT(heard, ElementsAre("first", "second", "third", "second", "third"));
}

TEST_F(WatchersTest, aHandleMayOutliveWhatItWatches) {
    auto mortal = std::make_unique<Watchers>();
    auto handle = mortal->add([this] { heard.emplace_back("called"); });
    mortal.reset();
    handle.cancel();
    EXPECT_THAT(heard, IsEmpty());
}

class ObservableTest : public ::testing::Test {
protected:
    Observable<int> number{1};
    std::vector<int> heard;
    Cancellable watch = number.watch([this] { heard.push_back(*number); });
};

TEST_F(ObservableTest, aChangeIsHeardOfOnceTheNewValueIsThere) {
    number.set(2);
    EXPECT_EQ(number.get(), 2);
    EXPECT_THAT(heard, ElementsAre(2));
}

TEST_F(ObservableTest, anEqualValueWakesNobody) {
    number.set(1);
    number.set(2);
    number.set(2);
    EXPECT_THAT(heard, ElementsAre(2));
}

TEST_F(ObservableTest, anEqualValueIsPutInPlaceAllTheSame) {
    // Equal by what counts, and yet another one.
    struct Named {
        int number = 0;
        const char* name = "";
        bool operator==(const Named& other) const { return number == other.number; }
    };
    Observable<Named> named{{1, "old"}};
    int calls = 0;
    const auto handle = named.watch([&calls] { ++calls; });
    named.set({1, "new"});
    EXPECT_STREQ(named->name, "new");
    EXPECT_EQ(calls, 0);
}

TEST_F(ObservableTest, aValueThatNeverEqualsItselfIsAlwaysAChange) {
    Observable<double> length{std::numeric_limits<double>::quiet_NaN()};
    int calls = 0;
    const auto handle = length.watch([&calls] { ++calls; });
    length.set(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(calls, 1);
}

TEST_F(ObservableTest, beingMadeIsNoChange) {
    const Observable<std::string> text{"word"};
    EXPECT_EQ(*text, "word");
    EXPECT_EQ(text->size(), 4U);
    EXPECT_EQ(Observable<int>{}.get(), 0);
}

TEST_F(ObservableTest, nobodyHearsAfterTheWatchWentAway) {
    watch.cancel();
    number.set(2);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(ObservableTest, aWatcherMaySetTheValueAgain) {
    // All hear of every change; the one that came later hears of the last one first.
    std::vector<int> later;
    const auto limiter = number.watch([this] {
        if (*number > 10) number.set(10);
    });
    const auto last = number.watch([this, &later] { later.push_back(*number); });
    number.set(50);
    EXPECT_EQ(*number, 10);
    EXPECT_THAT(heard, ElementsAre(50, 10));
    EXPECT_THAT(later, ElementsAre(10, 10));
}

TEST_F(ObservableTest, aWatcherMayDestroyWhatItWatches) {
    auto mortal = std::make_unique<Observable<int>>(1);
    std::vector<std::string> order;
    const auto first = mortal->watch([&] {
        mortal.reset();
        order.emplace_back("first");
    });
    const auto second = mortal->watch([&order] { order.emplace_back("second"); });
    mortal->set(2);
    EXPECT_EQ(mortal, nullptr);
    // The change was one for all who watched then.
    EXPECT_THAT(order, ElementsAre("first", "second"));
}

TEST_F(ObservableTest, watchesOfOneValueHearNothingOfAnother) {
    Observable<int> other{1};
    other.set(5);
    EXPECT_THAT(heard, IsEmpty());
}

} // namespace
} // namespace velmorin
