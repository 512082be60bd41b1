#include "tests/phone/PhoneLinkTest.h"

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class PhoneLinkListeningTest : public PhoneLinkTest {
protected:
    std::string urlSince(std::string_view since) {
        return "https://ntfy.sh/" + link().pairing()->statusTopic() + "/json?since=" + std::string{since};
    }
    void beginPairing() {
        link().beginPairing();
        settle();
        forget();
    }
    void endStream() {
        relay.endStreams();
        settle();
    }
    /// Makes the phone lock for a session that is sent to it.
    ActiveSession start() {
        const auto work = session();
        link().sendStart(work);
        settle();
        forget();
        return work;
    }
    /// Brings a paired link into a state of the lock, by a session of its own.
    void reach(LockState state) {
        if (state == LockState::idle) return;
        const auto work = start();
        if (state == LockState::noAnswer) advance(25);
        if (state == LockState::locked) sayOf("locked", work.id);
        if (state == LockState::releasedByPhone) sayOf("released", work.id);
        if (state == LockState::needsSetup) sayOf("notReady", work.id);
        ASSERT_EQ(lockState(), state);
    }
    std::string savedMessageID() const {
        const std::string text = file().value_or("");
        const std::string key = R"("lastMessageID":")";
        const auto found = text.find(key);
        if (found == std::string::npos) return "none";
        const auto first = found + key.size();
        return text.substr(first, text.find('"', first) - first);
    }
};

TEST_F(PhoneLinkListeningTest, aNewPairingListensFromTheLatestMessageOn) {
    beginPairing();
    EXPECT_THAT(relay.streams, ElementsAre(urlSince("latest")));
}

TEST_F(PhoneLinkListeningTest, theStreamIsNotOpenedFromWithinTheCall) {
    link().beginPairing();
    EXPECT_THAT(relay.streams, IsEmpty());
}

TEST_F(PhoneLinkListeningTest, theNextLaunchListensFromTheLastMessageOn) {
    pair();
    forgetLink();
    link().startListening();
    settle();
    EXPECT_EQ(relay.streams.back(), urlSince("m1"));
    EXPECT_EQ(relay.openCount(), 1U);
}

TEST_F(PhoneLinkListeningTest, withoutAPairingThereIsNothingToListenTo) {
    link().startListening();
    advance(60);
    EXPECT_THAT(relay.streams, IsEmpty());
}

TEST_F(PhoneLinkListeningTest, listeningAnewEndsTheOldStream) {
    pair();
    link().startListening();
    link().startListening();
    settle();
    EXPECT_THAT(relay.streams, ElementsAre(urlSince("latest"), urlSince("m1")));
    EXPECT_EQ(relay.openCount(), 1U);
    say(hello);
    EXPECT_THAT(log, ElementsAre("phone paired")) << "heard once";
}

TEST_F(PhoneLinkListeningTest, aStreamThatEndsIsOpenedAgainAfterFiveSecondsWhereItWas) {
    pair();
    say(hello);
    endStream();
    EXPECT_EQ(relay.openCount(), 0U);
    advance(4.9);
    EXPECT_EQ(relay.openCount(), 0U);
    advance(0.1);
    EXPECT_EQ(relay.openCount(), 1U);
    EXPECT_THAT(relay.streams, ElementsAre(urlSince("latest"), urlSince("m2")));
}

TEST_F(PhoneLinkListeningTest, aRelayOutOfReachIsTriedEveryFiveSecondsForEverWithoutAWord) {
    pair();
    relay.refusesStreams = true;
    endStream();
    const auto before = relay.streams.size();
    advance(5 * 1000.0);
    EXPECT_EQ(relay.streams.size(), before + 1000);
    EXPECT_THAT(log, IsEmpty());
    relay.refusesStreams = false;
    advance(5);
    EXPECT_EQ(relay.openCount(), 1U);
}

TEST_F(PhoneLinkListeningTest, linesThatAreNoMessagesChangeNothing) {
    pair();
    const auto before = file();
    for (const char* line :
         {"", "{", "no JSON", "[]", "null", R"({"id":"x","event":"open","topic":"t"})",
          R"({"id":"x","event":"keepalive","message":"y"})", R"({"id":"x","event":"Message","message":"y"})",
          R"({"id":"x","message":"y"})", R"({"event":"message","message":"y"})", R"({"id":"x","event":"message"})",
          R"({"id":7,"event":"message","message":"y"})", R"({"id":"x","event":"message","message":7})"})
        relay.sendLine(line);
    settle();
    EXPECT_EQ(file(), before);
    EXPECT_THAT(log, IsEmpty());
    endStream();
    advance(5);
    EXPECT_EQ(relay.streams.back(), urlSince("m1")) << "not even where the stream goes on";
}

TEST_F(PhoneLinkListeningTest, aMessageThatCannotBeOpenedIsLoggedAndNotFetchedAgain) {
    pair();
    const std::vector<std::string> bad{
        "",
        "nothing sealed",
        sealed(hello, PhoneWire::command),
        *PhoneWire::seal({'{', '}'}, Bytes(32, 9), PhoneWire::status),
        sealed("no JSON"),
        sealed("{}"),
        sealed(R"({"type":"newer"})"),
        sealed(R"({"type":"locked"})"),
        sealed(R"({"type":"locked","id":"none"})"),
        sealed(R"({"type":"thought","id":"x"})"),
    };
    for (const auto& text : bad) {
        log.clear();
        deliver(text);
        EXPECT_THAT(log, ElementsAre("ignored a phone message")) << text;
        EXPECT_EQ(savedMessageID(), lastMessageID()) << text;
    }
    endStream();
    advance(5);
    EXPECT_EQ(relay.streams.back(), urlSince(lastMessageID()));
}

TEST_F(PhoneLinkListeningTest, aMessageIsRememberedBeforeItIsOpened) {
    beginPairing();
    std::string then;
    link().onThought = [&](const PhoneThought&) { then = savedMessageID(); };
    say(*thought("one").encoded());
    EXPECT_EQ(then, "m1");
}

TEST_F(PhoneLinkListeningTest, lockedReleasedAndNotReadyOfTheSessionAreItsLockState) {
    pair();
    const auto work = start();
    const auto check = [&](const char* type, LockState state, const char* message) {
        log.clear();
        sayOf(type, work.id);
        EXPECT_EQ(lockState(), state);
        EXPECT_THAT(log, ElementsAre(message));
    };
    // Each from each of the others.
    check("locked", LockState::locked, "phone locked");
    check("released", LockState::releasedByPhone, "phone released early");
    check("notReady", LockState::needsSetup, "phone needs setup");
    check("locked", LockState::locked, "phone locked");
    check("notReady", LockState::needsSetup, "phone needs setup");
    check("released", LockState::releasedByPhone, "phone released early");
    check("locked", LockState::locked, "phone locked");
    link().sendEnd(work);
    EXPECT_EQ(lockState(), LockState::idle);
}

TEST_F(PhoneLinkListeningTest, aStartAnEndAndADisconnectionCountInEveryState) {
    for (const auto state : {LockState::idle, LockState::sending, LockState::locked, LockState::noAnswer,
                             LockState::releasedByPhone, LockState::needsSetup}) {
        pair();
        reach(state);
        const auto next = start();
        EXPECT_EQ(lockState(), LockState::sending) << rawValue(state);
        reach(state);
        link().sendEnd(next);
        EXPECT_EQ(lockState(), LockState::idle) << rawValue(state);
        reach(state);
        link().disconnect();
        EXPECT_EQ(lockState(), LockState::idle) << rawValue(state);
        EXPECT_EQ(pairingState(), PairingState::notPaired);
    }
}

TEST_F(PhoneLinkListeningTest, anAnswerEndsTheWaitForOne) {
    pair();
    for (const auto& [type, state] :
         {std::pair{"locked", LockState::locked}, std::pair{"released", LockState::releasedByPhone},
          std::pair{"notReady", LockState::needsSetup}}) {
        const auto work = start();
        EXPECT_EQ(lockState(), LockState::sending);
        sayOf(type, work.id);
        log.clear();
        advance(60);
        EXPECT_EQ(lockState(), state);
        EXPECT_THAT(log, IsEmpty());
    }
}

TEST_F(PhoneLinkListeningTest, aLateAnswerStillCounts) {
    pair();
    const auto work = start();
    advance(300);
    EXPECT_EQ(lockState(), LockState::noAnswer);
    sayOf("locked", work.id);
    EXPECT_EQ(lockState(), LockState::locked);
}

TEST_F(PhoneLinkListeningTest, aStatusOfAnotherSessionDoesNothingAtAll) {
    pair();
    for (const char* type : {"locked", "released", "notReady"}) {
        sayOf(type, UUID::random());
        EXPECT_EQ(lockState(), LockState::idle) << "no session is locked";
    }
    (void)start();
    for (const char* type : {"locked", "released", "notReady"}) {
        sayOf(type, UUID::random());
        EXPECT_EQ(lockState(), LockState::sending);
    }
    EXPECT_THAT(log, IsEmpty());
    EXPECT_EQ(savedMessageID(), lastMessageID()) << "though it is remembered";
    advance(25);
    EXPECT_EQ(lockState(), LockState::noAnswer) << "and the wait goes on";
}

TEST_F(PhoneLinkListeningTest, afterARestartTheOldSessionIsNotKnown) {
    pair();
    const auto work = start();
    forgetLink();
    link().startListening();
    settle();
    sayOf("locked", work.id);
    EXPECT_EQ(lockState(), LockState::idle);
    link().sendStart(work);
    settle();
    sayOf("locked", work.id);
    EXPECT_EQ(lockState(), LockState::locked);
}

TEST_F(PhoneLinkListeningTest, whoWatchesTheLockHearsOfChangesOnly) {
    pair();
    std::vector<LockState> seen;
    const auto watch = link().lockState().watch([&] { seen.push_back(lockState()); });
    const auto work = start();
    sayOf("locked", work.id);
    sayOf("locked", work.id);
    link().sendEnd(work);
    link().sendEnd(work);
    EXPECT_THAT(seen, ElementsAre(LockState::sending, LockState::locked, LockState::idle));
    EXPECT_THAT(log, ElementsAre("phone locked", "phone locked")) << "each is logged all the same";
}

TEST_F(PhoneLinkListeningTest, aThoughtIsHandedOnWhateverElseGoesOn) {
    beginPairing();
    const auto sent = thought("یک فکر");
    say(*sent.encoded());
    EXPECT_THAT(log, IsEmpty()) << "nobody has asked for it, which does no harm";
    std::vector<PhoneThought> heard;
    link().onThought = [&heard](const PhoneThought& thought) { heard.push_back(thought); };
    say(*sent.encoded());
    say(hello);
    say(*sent.encoded());
    EXPECT_THAT(heard, ElementsAre(sent, sent));
    EXPECT_THAT(log, ElementsAre("phone paired"));
}

TEST_F(PhoneLinkListeningTest, theProblemIsToldInThePresentLanguage) {
    pair();
    AppSettings settings;
    for (const auto language : {AppLanguage::persian, AppLanguage::english, AppLanguage::german}) {
        settings.language = language;
        appearance.apply(settings);
        const auto& strings = AppStrings::of(language);
        const auto work = start();
        EXPECT_FALSE(link().problemText());
        advance(25);
        EXPECT_EQ(link().problemText(), std::string{strings.phoneNoAnswerDetail});
        sayOf("notReady", work.id);
        EXPECT_EQ(link().problemText(), std::string{strings.phoneNeedsSetup});
        sayOf("locked", work.id);
        EXPECT_FALSE(link().problemText());
        sayOf("released", work.id);
        EXPECT_FALSE(link().problemText());
        link().sendEnd(work);
        EXPECT_FALSE(link().problemText());
    }
}

TEST_F(PhoneLinkListeningTest, disconnectingEndsTheStreamAndTheWayBackToIt) {
    pair();
    endStream();
    link().disconnect();
    advance(60);
    EXPECT_THAT(relay.streams, SizeIs(1));
    EXPECT_EQ(relay.openCount(), 0U);
}

TEST_F(PhoneLinkListeningTest, disconnectingFromWithinAMessageIsHarmless) {
    pair();
    link().onThought = [this](const PhoneThought&) { link().disconnect(); };
    say(*thought("one").encoded());
    EXPECT_EQ(pairingState(), PairingState::notPaired);
    EXPECT_FALSE(file());
    advance(60);
    EXPECT_EQ(relay.openCount(), 0U);
    EXPECT_THAT(relay.streams, SizeIs(1));
}

TEST_F(PhoneLinkListeningTest, aNewPairingFromWithinAMessageListensFromTheLatestMessageOn) {
    pair();
    link().onThought = [this](const PhoneThought&) { link().beginPairing(); };
    say(*thought("one").encoded());
    EXPECT_EQ(relay.streams.back(), urlSince("latest"));
    EXPECT_EQ(savedMessageID(), "none");
}

} // namespace
} // namespace velmorin
