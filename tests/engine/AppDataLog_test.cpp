#include "core/store/EventLog.h"
#include "tests/engine/AppDataTest.h"

namespace velmorin {
namespace {

using ::testing::IsEmpty;

class AppDataLogTest : public AppDataTest {
protected:
    static std::string bytes(std::size_t count) { return std::string(count, 'x'); }
};

TEST_F(AppDataLogTest, aLogOfAMillionBytesIsKeptAtTheStart) {
    writeFile(EventLog::fileName, bytes(1'000'000));
    load();
    EXPECT_EQ(file(EventLog::fileName), bytes(1'000'000));
    EXPECT_THAT(eventNames(), IsEmpty());
}

TEST_F(AppDataLogTest, aLogOfOneByteMoreIsDeletedAtTheStart) {
    writeFile(EventLog::fileName, bytes(1'000'001));
    load();
    EXPECT_FALSE(file(EventLog::fileName));
    EXPECT_THAT(files.contents, IsEmpty()) << "no older generation is kept";
}

TEST_F(AppDataLogTest, theLogGrowsWithoutLimitWhileTheProgramRuns) {
    load();
    writeFile(EventLog::fileName, bytes(1'000'001));
    data().log("more");
    advance(86'400);
    data().log("still more");
    EXPECT_GT(file(EventLog::fileName)->size(), 1'000'001U);
    load();
    EXPECT_FALSE(file(EventLog::fileName));
}

TEST_F(AppDataLogTest, aLineIsTheMomentInUTCABlankAndTheMessage) {
    data().log("one");
    advance(59.9);
    data().log("two words");
    EXPECT_EQ(file(EventLog::fileName), "2026-05-09T06:13:20Z one\n2026-05-09T06:14:19Z two words\n");
}

TEST_F(AppDataLogTest, theLogFollowsTheWallClock) {
    data().log("before");
    desktop().time.setClock(-3600);
    data().log("after");
    EXPECT_EQ(file(EventLog::fileName), "2026-05-09T06:13:20Z before\n2026-05-09T05:13:20Z after\n");
}

TEST_F(AppDataLogTest, theFirstLineMakesTheFile) {
    load();
    EXPECT_FALSE(file(EventLog::fileName));
    data().log("first");
    EXPECT_EQ(file(EventLog::fileName), "2026-05-09T06:13:20Z first\n");
}

TEST_F(AppDataLogTest, aLineThatCannotBeWrittenIsLost) {
    data().log("first");
    desktop().disk.isFull = true;
    data().log("lost");
    desktop().disk.isFull = false;
    data().log("third");
    EXPECT_EQ(file(EventLog::fileName), "2026-05-09T06:13:20Z first\n2026-05-09T06:13:20Z third\n");
}

} // namespace
} // namespace velmorin
