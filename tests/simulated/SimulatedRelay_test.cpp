#include "app/platform/simulated/SimulatedRelay.h"

#include "core/foundation/JSONMembers.h"
#include "tests/simulated/WorldTest.h"

#include <gmock/gmock.h>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;

class SimulatedRelayTest : public WorldTest {
protected:
    Cancellable listen(const std::string& topic, const std::string& since = "latest") {
        return relay.stream(
            "https://relay.example/" + topic + "/json?since=" + since,
            [this](const std::string& line) {
                const auto members = JSONMembers::parse(line);
                texts.push_back(members ? members->get<std::string>("message").value_or("-") : line);
                lines.push_back(line);
            },
            [this] { ++ends; });
    }
    std::string id(std::size_t line) { return JSONMembers::parse(lines.at(line))->get<std::string>("id").value_or(""); }

    SimulatedRelay& relay = desktop.relay;
    std::vector<std::string> texts;
    std::vector<std::string> lines;
    int ends = 0;
};

TEST_F(SimulatedRelayTest, aMessageComesToThoseWhoListenToItsTopic) {
    const auto here = listen("here");
    const auto there = listen("there");
    relay.publish("here", "hello");
    EXPECT_THAT(texts, IsEmpty());
    settle();
    EXPECT_THAT(texts, ElementsAre("hello"));
    EXPECT_EQ(lines[0], R"({"id":"message1","event":"message","topic":"here","message":"hello"})");
}

TEST_F(SimulatedRelayTest, whatIsPostedIsPublishedUnderTheAddressesPath) {
    const auto stream = listen("commands");
    std::optional<int> status;
    const auto post = relay.post("https://relay.example/commands", "sealed", 15, [&](auto given) { status = given; });
    settle();
    EXPECT_THAT(status, Optional(200));
    EXPECT_THAT(texts, ElementsAre("sealed"));
    EXPECT_THAT(relay.messages("commands"), ElementsAre("sealed"));
    EXPECT_THAT(relay.messages("others"), IsEmpty());
}

TEST_F(SimulatedRelayTest, aStreamBeginsWithTheLastMessageOrWithThoseAfterAGivenOne) {
    const auto all = listen("topic");
    for (const auto* text : {"one", "two", "three"})
        relay.publish("topic", text);
    settle();
    texts.clear();
    const auto latest = listen("topic");
    settle();
    EXPECT_THAT(texts, ElementsAre("three"));
    texts.clear();
    const auto since = listen("topic", id(0));
    settle();
    EXPECT_THAT(texts, ElementsAre("two", "three"));
    texts.clear();
    const auto upToDate = listen("topic", id(2));
    settle();
    EXPECT_THAT(texts, IsEmpty());
    const auto forgotten = listen("topic", "nobodyKnows");
    settle();
    EXPECT_THAT(texts, ElementsAre("one", "two", "three"));
}

TEST_F(SimulatedRelayTest, whenItGoesDownStreamsEndAndRequestsFail) {
    const auto stream = listen("topic");
    relay.setUp(false);
    EXPECT_EQ(ends, 0);
    settle();
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(relay.streamCount(), 0U);
    std::optional<int> status = 0;
    const auto post = relay.post("https://relay.example/topic", "lost", 15, [&](auto given) { status = given; });
    relay.publish("topic", "lost, too");
    const auto refused = listen("topic");
    settle();
    EXPECT_EQ(status, std::nullopt);
    EXPECT_EQ(ends, 2);
    relay.setUp(true);
    const auto again = listen("topic");
    settle();
    EXPECT_THAT(texts, IsEmpty());
}

TEST_F(SimulatedRelayTest, whatWasSaidBeforeItWentDownIsStillThereAfterwards) {
    relay.publish("topic", "before");
    relay.setUp(false);
    relay.setUp(true);
    const auto stream = listen("topic");
    settle();
    EXPECT_THAT(texts, ElementsAre("before"));
}

TEST_F(SimulatedRelayTest, aStreamThatWasCancelledHearsNothing) {
    auto stream = listen("topic");
    relay.publish("topic", "under way");
    stream.cancel();
    relay.setUp(false);
    settle();
    EXPECT_THAT(texts, IsEmpty());
    EXPECT_EQ(ends, 0);
}

TEST_F(SimulatedRelayTest, anyLineCanBeSent) {
    const auto stream = listen("topic");
    relay.sendLine("topic", "no JSON at all");
    settle();
    EXPECT_THAT(texts, ElementsAre("no JSON at all"));
    EXPECT_THAT(relay.messages("topic"), IsEmpty());
}

TEST_F(SimulatedRelayTest, postsAndStreamsAreEventsWithWhatWasSealedOpenedAgain) {
    relay.opener = [](const std::string&, std::string_view sealed) -> std::optional<std::string> {
        return sealed == "good" ? std::optional{std::string{R"({"type":"end"})"}} : std::nullopt;
    };
    const auto stream = listen("statuses");
    const auto good = relay.post("https://relay.example/commands", "good", 15, [](auto) {});
    const auto bad = relay.post("https://relay.example/commands", "bad", 15, [](auto) {});
    relay.publish("statuses", "the phone's own messages are none");
    EXPECT_THAT(takeEvents(),
                ElementsAre(R"(listen "topic":"statuses")", R"(post "topic":"commands","message":{"type":"end"})",
                            R"(post "topic":"commands","message":null)"));
}

} // namespace
} // namespace velmorin
