#include "core/foundation/Text.h"
#include "core/phone/PhoneWire.h"
#include "tests/support/EngineTest.h"

#include <algorithm>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

class ThoughtsTest : public EngineTest {
protected:
    ThoughtsTest() { launch(); }

    /// A paired phone that has said hello and heard what there is.
    void pair() {
        data().phoneLink().beginPairing();
        settle();
        fromPhone(R"({"type":"hello","v":1})");
        forgetEvents();
    }
    void fromPhone(std::string_view message) {
        ASSERT_TRUE(scene().sendFromPhone(message));
        settle();
    }
    /// What the phone says of a thought, changed this many seconds after the start of the scene.
    static std::string said(const UUID& id, std::string_view text, double changed, bool isDeleted = false) {
        return *PhoneThought{id.text(), std::string{text}, startOfScene - 50, startOfScene + changed, false, isDeleted}
                    .encoded();
    }
    void set(std::vector<Thought> thoughts) {
        data().setThoughts(std::move(thoughts));
        settle();
    }
    /// What was posted, opened again.
    std::vector<std::string> posted() const {
        const std::string_view key = R"("message":)";
        std::vector<std::string> messages;
        for (const auto& details : events("post"))
            messages.push_back(details.substr(details.find(key) + key.size()));
        return messages;
    }
    static std::string sent(const Thought& thought, Date changedAt, bool isDeleted = false) {
        return *message(thought, changedAt, isDeleted).encoded();
    }
    std::vector<std::string> texts() {
        std::vector<std::string> found;
        std::ranges::transform(*data().thoughts(), std::back_inserter(found), &Thought::text);
        return found;
    }
    const std::vector<Thought>& thoughts() { return *data().thoughts(); }

    Thought first{"first", startOfScene - 20};
    Thought second{"second", startOfScene - 10};
};

TEST_F(ThoughtsTest, aParkedThoughtStandsInFrontTrimmedAndOpen) {
    data().addThought("first");
    advance(1.5);
    data().addThought(" \t\n call the\nbank \r\n");
    ASSERT_THAT(texts(), ElementsAre("call the\nbank", "first"));
    EXPECT_EQ(thoughts()[0].createdAt, startOfScene + 1.5);
    EXPECT_FALSE(thoughts()[0].done);
    EXPECT_NE(thoughts()[0].id, thoughts()[1].id);
    EXPECT_EQ(thoughts()[0].id.bytes[6] >> 4, 4);
    EXPECT_THAT(log(), ElementsAre("thought parked", "thought parked"));
    EXPECT_EQ(saves(AppData::thoughtsFile), 2U);
    EXPECT_EQ(stored<std::vector<Thought>>(AppData::thoughtsFile), thoughts());
}

TEST_F(ThoughtsTest, whiteSpaceOfAnyScriptIsTrimmed) {
    data().addThought("\u00A0\u2003\u3000یک فکر\u2028\u2029\u0085\u202F");
    EXPECT_THAT(texts(), ElementsAre("یک فکر"));
    // The joint that holds Persian words together is no white space.
    data().addThought(" \u200Cword\u200C ");
    EXPECT_EQ(texts().front(), "\u200Cword\u200C");
}

TEST_F(ThoughtsTest, aThoughtOfWhiteSpaceOnlyIsNone) {
    forgetEvents();
    for (const char* text : {"", " ", "\n\n", " \t\r\n\v\f", "\u00A0", "\u2003\u2028\u3000"})
        data().addThought(text);
    EXPECT_THAT(thoughts(), IsEmpty());
    EXPECT_THAT(eventNames(), IsEmpty());
}

TEST_F(ThoughtsTest, openThoughtsAreThoseNotDoneInTheirOrder) {
    auto done = first;
    done.done = true;
    const Thought third{"third", startOfScene};
    set({third, done, second});
    const auto open = data().openThoughts();
    ASSERT_THAT(open, SizeIs(2));
    EXPECT_EQ(open[0].text, "third");
    EXPECT_EQ(open[1].text, "second");
}

TEST_F(ThoughtsTest, aChangeWithoutAPhoneIsMarkedWithItsMomentAndSentToNobody) {
    set({second, first});
    advance(5);
    auto edited = thoughts();
    edited[1].done = true;
    set(edited);
    EXPECT_EQ(thoughts()[0].updatedAt, startOfScene);
    EXPECT_EQ(thoughts()[1].updatedAt, startOfScene + 5);
    EXPECT_THAT(events("post"), IsEmpty());
    EXPECT_EQ(*data().phoneLink().pairingState(), PairingState::notPaired);
}

TEST_F(ThoughtsTest, nothingIsSentWhileThePhoneHasNotSaidHello) {
    data().phoneLink().beginPairing();
    settle();
    set({first});
    EXPECT_EQ(thoughts()[0].updatedAt, startOfScene);
    EXPECT_THAT(events("post"), IsEmpty());
}

TEST_F(ThoughtsTest, oneAssignmentIsOneSaveAndOneChangeOfTheMarkedList) {
    pair();
    std::vector<std::vector<Thought>> seen;
    const auto watch = data().thoughts().watch([&] { seen.push_back(thoughts()); });
    set({second, first});
    EXPECT_EQ(saves(AppData::thoughtsFile), 1U);
    ASSERT_THAT(seen, SizeIs(1));
    EXPECT_EQ(seen[0], thoughts());
    EXPECT_EQ(seen[0][0].updatedAt, startOfScene);
    EXPECT_EQ(stored<std::vector<Thought>>(AppData::thoughtsFile), thoughts());
}

TEST_F(ThoughtsTest, aNewThoughtIsSentAsItStands) {
    pair();
    advance(2);
    data().addThought("call the bank");
    settle();
    const std::string id = lowercased(thoughts()[0].id.text());
    EXPECT_THAT(posted(), ElementsAre(R"({"createdAt":1778307202,"deleted":false,"done":false,"id":")" + id +
                                      R"(","text":"call the bank","type":"thought","updatedAt":1778307202,"v":1})"));
    EXPECT_EQ(thoughts()[0].updatedAt, startOfScene + 2);
    EXPECT_THAT(log(), ElementsAre("thought parked")) << "a thought that gets through is not logged";
}

TEST_F(ThoughtsTest, onlyWhatHasChangedIsMarkedAndSent) {
    set({second, first});
    pair();
    advance(5);
    auto edited = thoughts();
    edited[1].text = "first, again";
    set(edited);
    EXPECT_EQ(thoughts()[0].updatedAt, startOfScene);
    EXPECT_EQ(thoughts()[1].updatedAt, startOfScene + 5);
    EXPECT_THAT(posted(), ElementsAre(sent(thoughts()[1], startOfScene + 5)));
}

TEST_F(ThoughtsTest, eachFieldCounts) {
    set({first});
    pair();
    const auto change = [this](auto edit) {
        advance(1);
        forgetEvents();
        auto edited = thoughts();
        edit(edited[0]);
        set(edited);
        return thoughts()[0].updatedAt == now() && posted().size() == 1;
    };
    EXPECT_TRUE(change([](Thought& thought) { thought.text += "."; }));
    EXPECT_TRUE(change([](Thought& thought) { thought.createdAt = thought.createdAt + 1; }));
    EXPECT_TRUE(change([](Thought& thought) { thought.done = !thought.done; }));
    EXPECT_TRUE(change([](Thought& thought) { thought.updatedAt.reset(); }));
    EXPECT_FALSE(change([](Thought&) {}));
}

TEST_F(ThoughtsTest, aThoughtThatIsGoneIsSentAsDeleted) {
    auto done = second;
    done.done = true;
    set({done, first});
    pair();
    advance(7);
    const auto before = thoughts();
    set({before[1]});
    EXPECT_THAT(posted(), ElementsAre(sent(before[0], startOfScene + 7, true)));
    EXPECT_NE(posted()[0].find(R"("deleted":true,"done":true)"), std::string::npos);
    EXPECT_THAT(texts(), ElementsAre("first"));
}

TEST_F(ThoughtsTest, changesAreSentInTheOrderOfTheListBeforeWhatIsGone) {
    const Thought third{"third", startOfScene};
    set({third, second, first});
    pair();
    const auto before = thoughts();
    auto edited = before[2];
    edited.done = true;
    const Thought fourth{"fourth", startOfScene};
    set({fourth, edited});
    EXPECT_THAT(posted(), ElementsAre(sent(fourth, startOfScene), sent(edited, startOfScene),
                                      sent(before[0], startOfScene, true), sent(before[1], startOfScene, true)));
}

TEST_F(ThoughtsTest, anotherOrderIsNoChangeOfAThought) {
    set({second, first});
    pair();
    advance(1);
    const auto before = thoughts();
    set({before[1], before[0]});
    EXPECT_THAT(posted(), IsEmpty());
    EXPECT_THAT(texts(), ElementsAre("first", "second"));
    EXPECT_EQ(saves(AppData::thoughtsFile), 1U);
    EXPECT_EQ(thoughts()[0].updatedAt, startOfScene);
}

TEST_F(ThoughtsTest, aFullDiskKeepsNothingFromThePhone) {
    pair();
    desktop().disk.isFull = true;
    set({first});
    EXPECT_THAT(posted(), SizeIs(1));
    EXPECT_EQ(saves(AppData::thoughtsFile), 0U);
    EXPECT_THAT(texts(), ElementsAre("first"));
}

TEST_F(ThoughtsTest, aThoughtFromThePhoneIsSavedAndLoggedAndNotEchoed) {
    pair();
    fromPhone(said(first.id, "from the phone", -1));
    ASSERT_THAT(texts(), ElementsAre("from the phone"));
    EXPECT_EQ(thoughts()[0].id, first.id);
    EXPECT_EQ(thoughts()[0].createdAt, startOfScene - 50);
    EXPECT_EQ(thoughts()[0].updatedAt, startOfScene - 1) << "the phone's moment, not this one";
    EXPECT_EQ(stored<std::vector<Thought>>(AppData::thoughtsFile), thoughts());
    EXPECT_EQ(saves(AppData::thoughtsFile), 1U);
    EXPECT_THAT(log(), ElementsAre("thought from phone"));
    EXPECT_THAT(events("post"), IsEmpty());
}

TEST_F(ThoughtsTest, aChangeFromThePhoneReplacesWhatIsOlder) {
    set({second, first});
    pair();
    fromPhone(said(first.id, "newer", 0));
    EXPECT_THAT(texts(), ElementsAre("second", "newer"));
    EXPECT_THAT(events("post"), IsEmpty());
}

TEST_F(ThoughtsTest, whatThePhoneSaysTooLateChangesNothing) {
    set({first});
    pair();
    const auto before = thoughts();
    fromPhone(said(first.id, "older", -0.5));
    EXPECT_EQ(thoughts(), before);
    EXPECT_EQ(saves(AppData::thoughtsFile), 0U);
    EXPECT_THAT(log(), IsEmpty());
}

TEST_F(ThoughtsTest, aDeletionFromThePhoneIsNotEchoed) {
    set({second, first});
    pair();
    fromPhone(said(first.id, "first", 1, true));
    EXPECT_THAT(texts(), ElementsAre("second"));
    EXPECT_THAT(log(), ElementsAre("thought from phone"));
    EXPECT_THAT(events("post"), IsEmpty());
    forgetEvents();
    fromPhone(said(first.id, "first", 2, true));
    EXPECT_THAT(log(), IsEmpty()) << "it is not known any more";
}

TEST_F(ThoughtsTest, aThoughtFromThePhoneWithoutAProperIdentifierChangesNothing) {
    pair();
    fromPhone(*PhoneThought{"no identifier", "text", startOfScene, startOfScene, false, false}.encoded());
    EXPECT_THAT(thoughts(), IsEmpty());
    EXPECT_THAT(log(), IsEmpty());
    EXPECT_EQ(saves(AppData::thoughtsFile), 0U);
}

TEST_F(ThoughtsTest, ownChangesAreSentAgainAfterOneFromThePhone) {
    pair();
    fromPhone(said(first.id, "from the phone", -1));
    data().addThought("own");
    settle();
    EXPECT_THAT(posted(), ElementsAre(sent(thoughts()[0], startOfScene)));
}

TEST_F(ThoughtsTest, aPhoneThatSaysHelloGetsTheWholeListInItsOrder) {
    set({first});
    advance(3);
    set({second, thoughts()[0]});
    advance(10);
    forgetEvents();
    data().phoneLink().beginPairing();
    settle();
    fromPhone(R"({"type":"hello"})");
    EXPECT_THAT(posted(), ElementsAre(sent(second, startOfScene + 3), sent(first, startOfScene)));
    EXPECT_THAT(log(), ElementsAre("phone pairing started", "phone paired"));
    EXPECT_EQ(saves(AppData::thoughtsFile), 0U);
}

TEST_F(ThoughtsTest, aThoughtThatNeverChangedIsSentWithTheMomentOfItsCreation) {
    writeFile(AppData::thoughtsFile, *encodeJSON(std::vector{first}));
    crash();
    launch();
    pair();
    fromPhone(R"({"type":"hello"})");
    EXPECT_THAT(posted(), ElementsAre(sent(first, first.createdAt)));
}

TEST_F(ThoughtsTest, everyHelloSendsThemAnew) {
    set({first});
    pair();
    fromPhone(R"({"type":"hello"})");
    fromPhone(R"({"type":"hello"})");
    EXPECT_THAT(posted(), ElementsAre(sent(first, startOfScene), sent(first, startOfScene)));
    EXPECT_EQ(*data().phoneLink().pairingState(), PairingState::paired);
}

TEST_F(ThoughtsTest, aThoughtThatDidNotGetThroughIsSentByTheNextHello) {
    pair();
    desktop().relay.setUp(false);
    set({first});
    advance(50);
    EXPECT_THAT(log(), ElementsAre("thought not sent"));
    EXPECT_THAT(posted(), SizeIs(5));
    EXPECT_THAT(texts(), ElementsAre("first"));
    desktop().relay.setUp(true);
    advance(3600);
    forgetEvents();
    fromPhone(R"({"type":"hello"})");
    EXPECT_THAT(posted(), ElementsAre(sent(first, startOfScene)));
}

TEST_F(ThoughtsTest, whatThePhoneSaidWhileTheProgramWasAwayArrivesAtTheNextLaunchOnce) {
    pair();
    fromPhone(said(first.id, "before", 1));
    const auto pairing = *data().phoneLink().pairing();
    crash();
    const std::string text = said(second.id, "meanwhile", 2);
    const Bytes nonce = desktop().random.bytes(12);
    desktop().relay.publish(pairing.statusTopic(),
                            *PhoneWire::seal({text.begin(), text.end()}, pairing.key, PhoneWire::status, nonce));
    forgetEvents();
    launch();
    EXPECT_THAT(texts(), UnorderedElementsAre("before", "meanwhile"));
    EXPECT_THAT(log(), ElementsAre("thought from phone"));
}

TEST_F(ThoughtsTest, nothingIsLostOrDoubledAcrossABrokenStream) {
    pair();
    fromPhone(said(first.id, "before", 1));
    desktop().relay.setUp(false);
    settle();
    desktop().relay.setUp(true);
    forgetEvents();
    fromPhone(said(second.id, "between", 2));
    EXPECT_THAT(log(), IsEmpty()) << "nobody listens yet";
    advance(5);
    EXPECT_THAT(texts(), UnorderedElementsAre("before", "between"));
    EXPECT_THAT(log(), ElementsAre("thought from phone"));
}

} // namespace
} // namespace velmorin
