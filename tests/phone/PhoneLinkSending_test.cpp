#include "tests/phone/PhoneLinkTest.h"

namespace velmorin {
namespace {

using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class PhoneLinkSendingTest : public PhoneLinkTest {
protected:
    PhoneLinkSendingTest() { pair(); }

    void sendStart(const ActiveSession& session) {
        link().sendStart(session);
        settle();
    }
    void sendEnd(const ActiveSession& session) {
        link().sendEnd(session);
        settle();
    }
    void sendThought(std::string text) {
        link().sendThought(thought(std::move(text)));
        settle();
    }
    std::string startOf(const ActiveSession& session, std::int64_t sequence = 1'778'307'200'000) {
        return *PhoneCommand::encoded(PhoneCommand::Start{session.id, session.startedAt, session.segments, sequence});
    }
    std::string endOf(const ActiveSession& session, std::int64_t sequence = 1'778'307'200'000) {
        return *PhoneCommand::encoded(PhoneCommand::End{session.id, sequence});
    }
};

TEST_F(PhoneLinkSendingTest, aStartIsPostedSealedToTheCommandTopic) {
    const auto work = session();
    sendStart(work);
    ASSERT_THAT(relay.posts, SizeIs(1));
    EXPECT_EQ(relay.posts[0].url, "https://ntfy.sh/" + link().pairing()->commandTopic());
    EXPECT_EQ(relay.posts[0].timeout, 15);
    EXPECT_THAT(posted(), ElementsAre(startOf(work)));
    EXPECT_EQ(lockState(), LockState::sending);
    EXPECT_THAT(log, ElementsAre("phone command sent"));
    advance(24);
    EXPECT_THAT(relay.posts, SizeIs(1)) << "one that got through is not sent again";
}

TEST_F(PhoneLinkSendingTest, nothingIsPostedFromWithinTheCall) {
    link().sendStart(session());
    link().sendThought(thought("one"));
    EXPECT_THAT(relay.posts, IsEmpty());
    settle();
    EXPECT_THAT(relay.posts, SizeIs(2));
}

TEST_F(PhoneLinkSendingTest, aSequenceIsTheMomentInWholeMilliseconds) {
    advance(1.2345);
    const auto work = session();
    sendStart(work);
    EXPECT_THAT(posted(), ElementsAre(startOf(work, 1'778'307'201'234)));
}

TEST_F(PhoneLinkSendingTest, aCommandIsTriedEveryFiveSecondsWithTheSameSealedText) {
    relay.status.reset();
    sendStart(session());
    advance(12);
    relay.status = 200;
    advance(60);
    EXPECT_THAT(postTimes(), ElementsAre(0, 5, 10, 15));
    EXPECT_THAT(relay.posts, Each(AllOf(Field(&ScriptedRelay::Post::body, relay.posts[0].body),
                                        Field(&ScriptedRelay::Post::url, relay.posts[0].url))));
    EXPECT_THAT(log, ElementsAre("phone command sent", "phone did not answer"));
}

TEST_F(PhoneLinkSendingTest, onlyAStatusOf200IsSuccess) {
    for (const int status : {0, 100, 199, 201, 202, 204, 301, 400, 401, 429, 500, 503}) {
        forget();
        relay.status = status;
        sendStart(session());
        advance(5);
        EXPECT_THAT(relay.posts, SizeIs(2)) << status;
        EXPECT_THAT(log, IsEmpty()) << status;
    }
}

TEST_F(PhoneLinkSendingTest, theTriesGoOnFiveSecondsAfterEachAnswer) {
    relay.status.reset();
    relay.answerDelay = 15;
    sendStart(session());
    advance(45);
    EXPECT_THAT(postTimes(), ElementsAre(0, 20, 40));
}

TEST_F(PhoneLinkSendingTest, aStartIsTriedUntilThePlannedEndAndThenEndsInSilence) {
    relay.status.reset();
    sendStart(session(12));
    advance(3600);
    EXPECT_THAT(postTimes(), ElementsAre(0, 5, 10));
    EXPECT_THAT(log, ElementsAre("phone did not answer"));
}

TEST_F(PhoneLinkSendingTest, thePlannedEndItselfIsTooLate) {
    relay.status.reset();
    sendStart(session(10));
    advance(3600);
    EXPECT_THAT(postTimes(), ElementsAre(0, 5));
}

TEST_F(PhoneLinkSendingTest, thePlannedEndGoesByTheWallClock) {
    relay.status.reset();
    sendStart(session(3600));
    advance(7);
    time.setClock(3600);
    advance(60);
    EXPECT_THAT(relay.posts, SizeIs(2));
}

TEST_F(PhoneLinkSendingTest, aSessionThatIsOverAlreadyIsPostedToNobody) {
    auto past = session(10);
    past.startedAt = start - 10;
    sendStart(past);
    EXPECT_THAT(relay.posts, IsEmpty());
    EXPECT_THAT(log, IsEmpty());
    EXPECT_EQ(lockState(), LockState::sending);
    advance(25);
    EXPECT_EQ(lockState(), LockState::noAnswer);
    EXPECT_THAT(relay.posts, IsEmpty());
    EXPECT_THAT(log, ElementsAre("phone did not answer"));
}

TEST_F(PhoneLinkSendingTest, withoutAnAnswerIn25SecondsThereIsNone) {
    sendStart(session());
    advance(24.9);
    EXPECT_EQ(lockState(), LockState::sending);
    advance(0.1);
    EXPECT_EQ(lockState(), LockState::noAnswer);
    EXPECT_THAT(log, ElementsAre("phone command sent", "phone did not answer"));
}

TEST_F(PhoneLinkSendingTest, anUnreachableRelayIsToldAsNoAnswerWhileTheTriesGoOn) {
    relay.status.reset();
    sendStart(session());
    advance(25);
    EXPECT_EQ(lockState(), LockState::noAnswer);
    advance(25);
    EXPECT_THAT(relay.posts, SizeIs(11));
}

TEST_F(PhoneLinkSendingTest, nothingIsSentWhileThePhoneHasNotSaidHello) {
    link().beginPairing();
    settle();
    forget();
    const auto work = session();
    sendStart(work);
    EXPECT_EQ(lockState(), LockState::idle);
    say(hello);
    sayOf("locked", work.id);
    EXPECT_EQ(lockState(), LockState::idle) << "no session was taken up";
    sendEnd(work);
    sendThought("one");
    EXPECT_THAT(posted(), SizeIs(1)) << "only the thought, now that it is paired";
    advance(60);
    EXPECT_EQ(lockState(), LockState::idle);
}

TEST_F(PhoneLinkSendingTest, nothingIsSentWithoutAPairing) {
    link().disconnect();
    forget();
    sendStart(session());
    sendThought("one");
    sendEnd(session());
    advance(60);
    EXPECT_THAT(relay.posts, IsEmpty());
    EXPECT_EQ(lockState(), LockState::idle);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(PhoneLinkSendingTest, aSecondStartHasItsFull25SecondsAndTakesThePlaceOfTheFirst) {
    relay.status.reset();
    const auto first = session();
    sendStart(first);
    advance(19);
    forget();
    relay.status = 200;
    const auto second = session();
    sendStart(second);
    EXPECT_THAT(posted(), ElementsAre(startOf(second, 1'778'307'219'000)));
    advance(24.9);
    EXPECT_EQ(lockState(), LockState::sending);
    EXPECT_THAT(relay.posts, SizeIs(1)) << "the first one is not tried again";
    advance(0.1);
    EXPECT_EQ(lockState(), LockState::noAnswer);
    sayOf("locked", first.id);
    EXPECT_EQ(lockState(), LockState::noAnswer);
    sayOf("locked", second.id);
    EXPECT_EQ(lockState(), LockState::locked);
}

TEST_F(PhoneLinkSendingTest, anEndIsPostedForTheSessionThatLockedThePhone) {
    const auto work = session();
    sendStart(work);
    sayOf("locked", work.id);
    advance(100);
    forget();
    sendEnd(work);
    EXPECT_THAT(posted(), ElementsAre(endOf(work, 1'778'307'300'000)));
    EXPECT_EQ(relay.posts[0].timeout, 15);
    EXPECT_EQ(lockState(), LockState::idle);
    EXPECT_THAT(log, ElementsAre("phone command sent"));
}

TEST_F(PhoneLinkSendingTest, anEndStopsTheTriesOfItsStart) {
    relay.status.reset();
    const auto work = session();
    sendStart(work);
    advance(7);
    relay.status = 200;
    forget();
    sendEnd(work);
    advance(60);
    EXPECT_THAT(posted(), ElementsAre(endOf(work, 1'778'307'207'000)));
    EXPECT_EQ(lockState(), LockState::idle);
    EXPECT_THAT(log, ElementsAre("phone command sent")) << "and nobody waits for an answer any more";
}

TEST_F(PhoneLinkSendingTest, anEndIsTriedForAnHour) {
    const auto work = session();
    sendStart(work);
    relay.status.reset();
    forget();
    sendEnd(work);
    advance(2 * 3600);
    ASSERT_THAT(relay.posts, SizeIs(720));
    EXPECT_EQ(postTimes().back(), 3595);
    EXPECT_THAT(relay.posts, Each(Field(&ScriptedRelay::Post::body, relay.posts[0].body)));
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(PhoneLinkSendingTest, theEndOfAnotherSessionPostsNothingAndStillLeavesThePhoneAlone) {
    const auto work = session();
    sendStart(work);
    sayOf("locked", work.id);
    forget();
    sendEnd(session());
    EXPECT_EQ(lockState(), LockState::idle);
    sendEnd(work);
    EXPECT_THAT(relay.posts, IsEmpty()) << "no session is known any more";
    sayOf("released", work.id);
    EXPECT_EQ(lockState(), LockState::idle);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(PhoneLinkSendingTest, theEndOfAnotherSessionLeavesTheTriesOfTheStart) {
    relay.status.reset();
    sendStart(session());
    sendEnd(session());
    advance(10);
    EXPECT_THAT(postTimes(), ElementsAre(0, 5, 10));
    EXPECT_EQ(lockState(), LockState::idle);
    advance(60);
    EXPECT_EQ(lockState(), LockState::idle) << "nobody waits for an answer";
}

TEST_F(PhoneLinkSendingTest, anEndIsNotPostedToAPhoneThatIsPairedAnew) {
    const auto work = session();
    sendStart(work);
    link().beginPairing();
    settle();
    forget();
    sendEnd(work);
    EXPECT_EQ(lockState(), LockState::idle);
    EXPECT_THAT(relay.posts, IsEmpty());
}

TEST_F(PhoneLinkSendingTest, disconnectingDuringASessionPostsNoEnd) {
    const auto work = session();
    sendStart(work);
    forget();
    link().disconnect();
    settle();
    sendEnd(work);
    advance(60);
    EXPECT_THAT(relay.posts, IsEmpty());
    EXPECT_EQ(lockState(), LockState::idle);
    EXPECT_THAT(log, ElementsAre("phone unpaired"));
}

TEST_F(PhoneLinkSendingTest, disconnectingStopsTheTriesAndTheWaitForAnAnswer) {
    relay.status.reset();
    sendStart(session());
    advance(7);
    forget();
    link().disconnect();
    advance(60);
    EXPECT_THAT(relay.posts, IsEmpty());
    EXPECT_EQ(lockState(), LockState::idle);
    EXPECT_THAT(log, ElementsAre("phone unpaired"));
}

TEST_F(PhoneLinkSendingTest, disconnectingCallsOffTheRequestThatIsUnderWay) {
    relay.answerDelay = 3;
    sendStart(session());
    link().disconnect();
    advance(60);
    EXPECT_THAT(log, ElementsAre("phone unpaired"));
}

TEST_F(PhoneLinkSendingTest, aThoughtThatGetsThroughIsNotLogged) {
    const auto one = thought("one");
    link().sendThought(one);
    settle();
    EXPECT_THAT(posted(), ElementsAre(*one.encoded()));
    EXPECT_EQ(relay.posts[0].url, "https://ntfy.sh/" + link().pairing()->commandTopic());
    EXPECT_EQ(relay.posts[0].timeout, 15);
    advance(600);
    EXPECT_THAT(relay.posts, SizeIs(1));
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(PhoneLinkSendingTest, aThoughtIsTriedFiveTimesTenSecondsApart) {
    relay.status = 500;
    sendThought("one");
    advance(49.9);
    EXPECT_THAT(postTimes(), ElementsAre(0, 10, 20, 30, 40));
    EXPECT_THAT(relay.posts, Each(Field(&ScriptedRelay::Post::body, relay.posts[0].body)));
    EXPECT_THAT(log, IsEmpty()) << "the last failure has its pause, too";
    advance(0.1);
    EXPECT_THAT(log, ElementsAre("thought not sent"));
    advance(600);
    EXPECT_THAT(relay.posts, SizeIs(5));
    EXPECT_THAT(log, SizeIs(1));
}

TEST_F(PhoneLinkSendingTest, aThoughtThatGetsThroughAtLastIsNotTriedAgain) {
    relay.status.reset();
    sendThought("one");
    advance(35);
    relay.status = 200;
    advance(600);
    EXPECT_THAT(postTimes(), ElementsAre(0, 10, 20, 30, 40));
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(PhoneLinkSendingTest, thoughtsAndCommandsDoNotReplaceOneAnother) {
    relay.status.reset();
    sendThought("one");
    sendThought("two");
    sendStart(session());
    sendThought("three");
    advance(10);
    EXPECT_THAT(postTimes(), ElementsAre(0, 0, 0, 0, 5, 10, 10, 10, 10));
}

TEST_F(PhoneLinkSendingTest, aThoughtUnderWayIsNotCalledOffByDisconnecting) {
    relay.status.reset();
    sendThought("one");
    link().disconnect();
    forget();
    advance(600);
    EXPECT_THAT(relay.posts, SizeIs(4));
    EXPECT_THAT(log, ElementsAre("thought not sent"));
}

TEST_F(PhoneLinkSendingTest, aLinkThatGoesTakesItsTriesWithIt) {
    relay.status.reset();
    sendThought("one");
    sendStart(session());
    forgetLink();
    forget();
    advance(600);
    EXPECT_THAT(relay.posts, IsEmpty());
    EXPECT_EQ(relay.openCount(), 0U);
    EXPECT_THAT(log, IsEmpty());
}

} // namespace
} // namespace velmorin
