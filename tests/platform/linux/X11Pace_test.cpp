#include "app/platform/linux/x11/X11Pace.h"

#include "app/platform/simulated/VirtualTime.h"

#include <gtest/gtest.h>

namespace velmorin {
namespace {

class X11PaceTest : public testing::Test {
protected:
    /// Somebody undoes it so many times in a row.
    void undo(int times) {
        for (int i = 0; i < times; ++i) {
            pace.count();
            pace.ask();
        }
    }

    VirtualTime time{Date{0}};
    int acts = 0;
    X11Pace pace{time, [this] { ++acts; }};
};

TEST_F(X11PaceTest, whatIsSeldomIsAnsweredAtOnce) {
    for (int i = 1; i <= 100; ++i) {
        undo(1);
        EXPECT_EQ(acts, i);
        time.advance(0.5);
    }
}

TEST_F(X11PaceTest, askingAloneIsNoRound) {
    for (int i = 0; i < 100; ++i)
        pace.ask();
    EXPECT_EQ(acts, 100);
}

TEST_F(X11PaceTest, whoNeverStopsIsAnsweredAQuietNumberOfTimesAndStillLast) {
    for (int i = 0; i < 1000; ++i) {
        undo(1);
        time.advance(0.001);
    }
    EXPECT_GT(acts, 30);
    EXPECT_LT(acts, 60) << "in a second";
    const int before = acts;
    time.advance(0.05);
    EXPECT_EQ(acts, before + 1) << "the last word";
    time.advance(10);
    EXPECT_EQ(acts, before + 1);
}

TEST_F(X11PaceTest, afterASecondOfCalmAllIsForgotten) {
    undo(1000);
    time.advance(1.1);
    const int before = acts;
    undo(1);
    EXPECT_EQ(acts, before + 1);
    EXPECT_EQ(time.nextDeadline().has_value(), true);
    time.advance(2);
    EXPECT_EQ(time.nextDeadline().has_value(), false) << "nothing ticks";
}

} // namespace
} // namespace velmorin
