#include "app/platform/simulated/Journal.h"

#include <gtest/gtest.h>
#include <vector>

namespace velmorin {
namespace {

class JournalTest : public ::testing::Test {
protected:
    JournalTest() {
        journal.onEvent = [this](const SimulatedEvent& event) { events.push_back(event); };
    }

    double time = 0;
    Journal journal{[this] { return time; }};
    std::vector<SimulatedEvent> events;
};

TEST_F(JournalTest, anEventIsOneObjectWithTheTimeFirst) {
    time = 2.5;
    journal.tell("sound", [](JSONOutput& output) {
        output.key("name");
        output.write("Glass");
        output.key("volume");
        output.write(0.4);
    });
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].line(), R"({"t":2.5,"event":"sound","name":"Glass","volume":0.4})");
}

TEST_F(JournalTest, anEventWithoutDetailsHasItsNameOnly) {
    journal.tell("tick");
    EXPECT_EQ(events.at(0).line(), R"({"t":0,"event":"tick"})");
    EXPECT_EQ(events.at(0), (SimulatedEvent{0, "tick", ""}));
}

TEST_F(JournalTest, detailsThatJSONCannotHoldAreLeftOut) {
    journal.tell("log", [](JSONOutput& output) {
        output.key("text");
        output.write("\xFF");
    });
    EXPECT_EQ(events.at(0).line(), R"({"t":0,"event":"log"})");
}

TEST_F(JournalTest, eventsComeInTheirOrder) {
    journal.tell("first");
    time = 1;
    journal.tell("second");
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[0].name, "first");
    EXPECT_EQ(events[1], (SimulatedEvent{1, "second", ""}));
}

TEST_F(JournalTest, withoutAReaderNothingIsWritten) {
    bool isWritten = false;
    journal.onEvent = {};
    journal.tell("tick", [&](JSONOutput&) { isWritten = true; });
    EXPECT_FALSE(isWritten);
}

} // namespace
} // namespace velmorin
