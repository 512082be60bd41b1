#include "core/session/SessionRecord.h"

#include "core/foundation/JSONCoding.h"
#include "core/session/Schedule.h"

#include <gtest/gtest.h>

namespace velmorin {
namespace {

const Date recordStart{800'000'000};

ActiveSession pomodoroSession() {
    return {"Work", SessionMode::pomodoro, "Write", recordStart, Schedule::pomodoro({}), {}, {}};
}

ActiveSession deepSession() {
    return {"Work", SessionMode::deep, "Write", recordStart, Schedule::deep({}), {}, {}};
}

SessionRecord aborted(const ActiveSession& session, double afterSeconds) {
    return {session, recordStart + afterSeconds, SessionOutcome::aborted, "enough"};
}

SessionRecord completed(const ActiveSession& session, double afterSeconds) {
    return {session, recordStart + afterSeconds, SessionOutcome::completed, std::nullopt};
}

void expectCredit(const SessionRecord& record, std::optional<std::int64_t> rounds, double seconds) {
    EXPECT_EQ(record.completedRounds, rounds);
    EXPECT_EQ(record.focusedSeconds, seconds);
}

TEST(SessionRecordTest, itCopiesWhatTheSessionWas) {
    auto session = pomodoroSession();
    session.attempts = 7;
    session.returns = 5;
    const auto record = aborted(session, 60.0);
    EXPECT_EQ(record.id, session.id);
    EXPECT_EQ(record.profileName, "Work");
    EXPECT_EQ(record.mode, SessionMode::pomodoro);
    EXPECT_EQ(record.intent, "Write");
    EXPECT_EQ(record.startedAt, recordStart);
    EXPECT_EQ(record.endedAt, recordStart + 60.0);
    EXPECT_EQ(record.attempts, 7);
    EXPECT_EQ(record.returns, 5);
    EXPECT_EQ(record.outcome, SessionOutcome::aborted);
    EXPECT_EQ(record.exitReason, "enough");
}

TEST(SessionRecordTest, aPomodoroSessionAbortedInItsThirdBlockIsCreditedTwoRounds) {
    expectCredit(aborted(pomodoroSession(), 60 * 60.0), 2, 3'000.0);
}

TEST(SessionRecordTest, aPomodoroSessionAbortedInItsSecondBreakIsCreditedTwoRounds) {
    expectCredit(aborted(pomodoroSession(), 59 * 60.0), 2, 3'000.0);
}

TEST(SessionRecordTest, aBlockAHundredthShortOfItsEndIsARound) {
    expectCredit(aborted(pomodoroSession(), 24 * 60.0 + 59.995), 1, 1'500.0);
}

TEST(SessionRecordTest, aBlockATenthShortOfItsEndIsNoRoundAndZeroIsPresent) {
    expectCredit(aborted(pomodoroSession(), 24 * 60.0 + 59.9), 0, 0.0);
}

TEST(SessionRecordTest, aCompletedPomodoroSessionIsCreditedAllItsBlocksAtAnyMoment) {
    for (const double after : {0.0, 115 * 60.0, 130 * 60.0, 1e6}) {
        expectCredit(completed(pomodoroSession(), after), 4, 6'000.0);
    }
}

TEST(SessionRecordTest, aDeepSessionIsCreditedToTheSecondWithoutItsBreaks) {
    expectCredit(aborted(deepSession(), 70 * 60.0), std::nullopt, 3'900.0);
}

TEST(SessionRecordTest, theOutcomeOfADeepSessionDoesNotChangeItsCredit) {
    expectCredit(completed(deepSession(), 70 * 60.0), std::nullopt, 3'900.0);
}

TEST(SessionRecordTest, aDeepSessionEndedBeforeItsStartIsCreditedNothing) {
    expectCredit(aborted(deepSession(), -60.0), std::nullopt, 0.0);
}

TEST(SessionRecordTest, anEmptyPlanIsCreditedNothing) {
    auto session = pomodoroSession();
    session.segments.clear();
    expectCredit(completed(session, 10.0), 0, 0.0);
    session.mode = SessionMode::deep;
    expectCredit(completed(session, 10.0), std::nullopt, 0.0);
}

TEST(SessionRecordTest, aPlanOfNoFiniteLengthIsCreditedNothingAndCanBeSaved) {
    auto session = pomodoroSession();
    session.segments = {{SegmentKind::work, 1e308}, {SegmentKind::work, 1e308}};
    expectCredit(completed(session, 10.0), 2, 0.0);
    EXPECT_TRUE(encodeJSON(completed(session, 10.0)));
}

TEST(SessionRecordTest, noRoundsAreWrittenAsZero) {
    EXPECT_NE(encodeJSON(aborted(pomodoroSession(), 10.0))->find(R"("completedRounds":0)"), std::string::npos);
}

TEST(SessionRecordTest, withoutAReasonTheKeyIsLeftOutAndItReadsBackEqual) {
    const auto record = completed(deepSession(), 70 * 60.0);
    const auto text = encodeJSON(record);
    ASSERT_TRUE(text);
    EXPECT_EQ(text->find("exitReason"), std::string::npos);
    EXPECT_EQ(text->find("completedRounds"), std::string::npos);
    EXPECT_EQ(decodeJSON<SessionRecord>(*text), record);
}

TEST(SessionRecordTest, withAReasonItReadsBackEqual) {
    const auto record = aborted(pomodoroSession(), 60.0);
    EXPECT_EQ(decodeJSON<SessionRecord>(*encodeJSON(record)), record);
}

TEST(SessionRecordTest, withoutRoundsAndReasonARecordLoadsButNotWithoutReturns) {
    std::string text = *encodeJSON(std::vector{completed(deepSession(), 70 * 60.0), completed(deepSession(), 1.0)});
    EXPECT_TRUE(decodeJSON<std::vector<SessionRecord>>(text));
    text.replace(text.find(R"("returns":0,)"), 12, "");
    EXPECT_FALSE(decodeJSON<std::vector<SessionRecord>>(text));
}

} // namespace
} // namespace velmorin
