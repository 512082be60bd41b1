#include "core/store/EventLog.h"

#include "tests/support/MemoryFiles.h"

#include <gtest/gtest.h>

namespace velmorin {
namespace {

class EventLogTest : public testing::Test {
protected:
    std::string& content() { return files.contents["events.log"]; }

    MemoryFiles files;
    JSONStore store{"", files};
};

TEST_F(EventLogTest, aLineIsTheMomentInUTCABlankAndTheMessage) {
    EventLog::log(store, Date{794'066'709.75}, "thought parked");
    EventLog::log(store, Date{794'066'710.0}, "stats cleared");
    EXPECT_EQ(content(), "2026-03-01T14:05:09Z thought parked\n2026-03-01T14:05:10Z stats cleared\n");
}

TEST_F(EventLogTest, aLogOfExactlyAMillionBytesIsKeptAtTheStart) {
    content() = std::string(1'000'000, 'x');
    EventLog::rotateIfLarge(store);
    EXPECT_EQ(content().size(), 1'000'000U);
}

TEST_F(EventLogTest, aLogOfAMillionAndOneBytesIsDeletedAtTheStart) {
    content() = std::string(1'000'001, 'x');
    EventLog::rotateIfLarge(store);
    EXPECT_TRUE(files.contents.empty());
}

TEST_F(EventLogTest, withoutALogThereIsNothingToRotate) {
    EventLog::rotateIfLarge(store);
    EXPECT_TRUE(files.contents.empty());
}

TEST_F(EventLogTest, duringARunTheLogGrowsWithoutLimit) {
    content() = std::string(1'000'000, 'x');
    EventLog::log(store, Date{}, "resumed");
    EXPECT_EQ(content().size(), 1'000'000U + std::string{"2001-01-01T00:00:00Z resumed\n"}.size());
}

} // namespace
} // namespace velmorin
