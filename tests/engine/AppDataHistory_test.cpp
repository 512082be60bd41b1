#include "tests/engine/AppDataTest.h"

#include <algorithm>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AppDataHistoryTest : public AppDataTest {
protected:
    /// Puts a record in front, as the end of a session does.
    void finish(const SessionRecord& record) {
        auto history = *data().history();
        history.insert(history.begin(), record);
        data().setHistory(std::move(history));
    }
    static std::vector<std::string> names(const std::vector<SessionRecord>& records) {
        std::vector<std::string> found;
        std::ranges::transform(records, std::back_inserter(found), &SessionRecord::profileName);
        return found;
    }
    std::vector<std::string> history() { return names(*data().history()); }
    std::vector<std::string> cleared() { return names(*data().clearedHistory()); }
    std::vector<std::string> savedFiles() const {
        std::vector<std::string> saved;
        for (const auto& details : events("save"))
            saved.push_back(details.substr(0, details.find(',')));
        return saved;
    }
};

TEST_F(AppDataHistoryTest, clearingKeepsTheHistoryForOneWayBack) {
    finish(record("first", 1));
    finish(record("second", 2));
    forgetEvents();
    data().clearHistory();
    EXPECT_THAT(history(), IsEmpty());
    EXPECT_THAT(cleared(), ElementsAre("second", "first"));
    EXPECT_THAT(eventNames(), ElementsAre("save", "save", "log"));
    EXPECT_THAT(savedFiles(), ElementsAre(R"("file":"history-cleared.json")", R"("file":"history.json")"))
        << "a crash between the two loses nothing";
    EXPECT_THAT(log(), ElementsAre("stats cleared"));
    EXPECT_EQ(file(AppData::historyFile), "[]");
}

TEST_F(AppDataHistoryTest, clearingAnEmptyHistoryLeavesTheWayBack) {
    finish(record("first", 1));
    data().clearHistory();
    forgetEvents();
    data().clearHistory();
    EXPECT_THAT(cleared(), ElementsAre("first"));
    EXPECT_THAT(eventNames(), IsEmpty());
}

TEST_F(AppDataHistoryTest, onlyTheLatestClearingCanBeTakenBack) {
    finish(record("first", 1));
    data().clearHistory();
    finish(record("second", 2));
    data().clearHistory();
    EXPECT_THAT(cleared(), ElementsAre("second"));
    data().restoreClearedHistory();
    EXPECT_THAT(history(), ElementsAre("second"));
}

TEST_F(AppDataHistoryTest, restoringKeepsWhatCameSinceNewestFirst) {
    finish(record("first", 1));
    finish(record("second", 2));
    data().clearHistory();
    finish(record("third", 3));
    forgetEvents();
    data().restoreClearedHistory();
    EXPECT_THAT(history(), ElementsAre("third", "second", "first"));
    EXPECT_THAT(cleared(), IsEmpty());
    EXPECT_THAT(savedFiles(), ElementsAre(R"("file":"history.json")", R"("file":"history-cleared.json")"));
    EXPECT_THAT(eventNames(), ElementsAre("save", "save", "log"));
    EXPECT_THAT(log(), ElementsAre("stats restored"));
}

TEST_F(AppDataHistoryTest, restoringSortsByStartWhateverTheOrderWas) {
    data().setHistory({record("late end", 1), record("newest", 9)});
    data().clearHistory();
    finish(record("between", 5));
    data().restoreClearedHistory();
    EXPECT_THAT(history(), ElementsAre("newest", "between", "late end"));
}

TEST_F(AppDataHistoryTest, recordsOfOneStartKeepTheirOrderWithTheNewerOnesFirst) {
    data().setHistory({record("cleared a", 5), record("cleared b", 5), record("cleared c", 5)});
    data().clearHistory();
    data().setHistory({record("since a", 5), record("since b", 5)});
    data().restoreClearedHistory();
    EXPECT_THAT(history(), ElementsAre("since a", "since b", "cleared a", "cleared b", "cleared c"));
}

TEST_F(AppDataHistoryTest, aRecordThatIsThereIsNotAddedAgain) {
    const auto kept = record("kept", 1);
    data().setHistory({record("cleared", 2), kept});
    data().clearHistory();
    auto edited = kept;
    edited.profileName = "kept, as it is now";
    finish(edited);
    data().restoreClearedHistory();
    EXPECT_THAT(history(), ElementsAre("cleared", "kept, as it is now"));
}

TEST_F(AppDataHistoryTest, restoringLeavesAFileWithAnEmptyList) {
    finish(record("first", 1));
    data().clearHistory();
    data().restoreClearedHistory();
    EXPECT_EQ(file(AppData::clearedHistoryFile), "[]");
    EXPECT_THAT(events("remove"), IsEmpty());
}

TEST_F(AppDataHistoryTest, restoringTwiceAddsNothing) {
    finish(record("first", 1));
    data().clearHistory();
    data().restoreClearedHistory();
    forgetEvents();
    data().restoreClearedHistory();
    EXPECT_THAT(history(), ElementsAre("first"));
    EXPECT_THAT(log(), ElementsAre("stats restored"));
}

TEST_F(AppDataHistoryTest, theWayBackOutlivesTheProcess) {
    finish(record("first", 1));
    data().clearHistory();
    load();
    EXPECT_THAT(history(), IsEmpty());
    data().restoreClearedHistory();
    EXPECT_THAT(history(), ElementsAre("first"));
}

TEST_F(AppDataHistoryTest, aFullDiskAtClearingStillClearsInMemory) {
    finish(record("first", 1));
    const auto before = file(AppData::historyFile);
    desktop().disk.isFull = true;
    data().clearHistory();
    EXPECT_THAT(history(), IsEmpty());
    EXPECT_THAT(cleared(), ElementsAre("first"));
    EXPECT_EQ(file(AppData::historyFile), before);
    EXPECT_FALSE(file(AppData::clearedHistoryFile));
}

TEST_F(AppDataHistoryTest, aLongHistoryIsNotCutShort) {
    constexpr std::size_t count = 5000;
    std::vector<SessionRecord> many;
    for (std::size_t index = 0; index < count; ++index)
        many.push_back(record("many", static_cast<double>(index)));
    data().setHistory(many);
    data().clearHistory();
    data().restoreClearedHistory();
    load();
    ASSERT_EQ(data().history()->size(), count);
    EXPECT_EQ(data().history()->front(), many.back());
    EXPECT_EQ(data().history()->back(), many.front());
}

} // namespace
} // namespace velmorin
