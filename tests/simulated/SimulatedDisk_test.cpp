#include "app/platform/simulated/SimulatedDisk.h"

#include "core/store/EventLog.h"
#include "core/store/JSONStore.h"
#include "tests/simulated/WorldTest.h"

#include <gmock/gmock.h>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SimulatedDiskTest : public WorldTest {
protected:
    void log(const std::string& text) { EventLog::log(store, desktop.time.now(), text); }
    std::string content(const char* name) { return files.read(std::filesystem::path{"/data"} / name).value_or("none"); }

    JSONStore store{"/data", desktop.disk};
};

TEST_F(SimulatedDiskTest, aSaveIsOneEventWithItsText) {
    EXPECT_TRUE(store.save(std::vector<std::int64_t>{1, 2}, "numbers.json"));
    EXPECT_THAT(takeEvents(), ElementsAre(R"(save "file":"numbers.json","text":"[1,2]")"));
    EXPECT_EQ(content("numbers.json"), "[1,2]");
    EXPECT_EQ(store.load<std::vector<std::int64_t>>("numbers.json"), (std::vector<std::int64_t>{1, 2}));
}

TEST_F(SimulatedDiskTest, aRemovalIsAnEventWhetherOrNotTheFileIsThere) {
    store.save(true, "flag.json");
    takeEvents();
    store.remove("flag.json");
    store.remove("flag.json");
    EXPECT_THAT(takeEvents(), ElementsAre(R"(remove "file":"flag.json")", R"(remove "file":"flag.json")"));
    EXPECT_EQ(content("flag.json"), "none");
}

TEST_F(SimulatedDiskTest, aFullDiskFailsEachSaveAndKeepsTheOldFile) {
    store.save(std::int64_t{1}, "number.json");
    takeEvents();
    desktop.disk.isFull = true;
    EXPECT_FALSE(store.save(std::int64_t{2}, "number.json"));
    EXPECT_THAT(takeEvents(), ElementsAre(R"(saveFailed "file":"number.json")"));
    EXPECT_EQ(content("number.json"), "1");
    EXPECT_EQ(content("number.json.tmp"), "none");
    desktop.disk.isFull = false;
    EXPECT_TRUE(store.save(std::int64_t{3}, "number.json"));
    EXPECT_THAT(takeEvents(), ElementsAre(R"(save "file":"number.json","text":"3")"));
}

TEST_F(SimulatedDiskTest, aFullDiskStillReadsAndRemoves) {
    store.save(std::int64_t{1}, "number.json");
    desktop.disk.isFull = true;
    EXPECT_EQ(store.load<std::int64_t>("number.json"), 1);
    store.remove("number.json");
    EXPECT_EQ(content("number.json"), "none");
}

TEST_F(SimulatedDiskTest, aLogLineIsAnEventWithoutItsDate) {
    log("first line");
    log("the second one");
    EXPECT_THAT(takeEvents(), ElementsAre(R"(log "text":"first line")", R"(log "text":"the second one")"));
    EXPECT_EQ(content("events.log"), "2026-05-09T06:13:20Z first line\n2026-05-09T06:13:20Z the second one\n");
}

TEST_F(SimulatedDiskTest, aLogLineThatIsLostIsOneEventThatSaysSo) {
    desktop.disk.isFull = true;
    log("into a new file");
    EXPECT_THAT(takeEvents(), ElementsAre(R"(log "text":"into a new file","lost":true)"));
    desktop.disk.isFull = false;
    log("kept");
    desktop.disk.isFull = true;
    log("behind it");
    EXPECT_THAT(takeEvents(), ElementsAre(R"(log "text":"kept")", R"(log "text":"behind it","lost":true)"));
    EXPECT_EQ(content("events.log"), "2026-05-09T06:13:20Z kept\n");
}

TEST_F(SimulatedDiskTest, readingIsNoEvent) {
    store.load<std::int64_t>("number.json");
    store.removeIfLarger("number.json", 1);
    EXPECT_THAT(takeEvents(), IsEmpty());
}

} // namespace
} // namespace velmorin
