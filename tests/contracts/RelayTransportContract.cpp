#include "tests/contracts/RelayTransportContract.h"

#include <gmock/gmock.h>
#include <thread>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;

TEST_P(RelayTransportContract, aBodyArrivesAsItIsAndIsAnsweredOnce) {
    const std::string body = "{\"a\":\"b c\"}\n%20&=زبان";
    const auto post = transport().post(bench().postURL(), body, longTimeout, noting());
    EXPECT_TRUE(bench().eventually([&] { return answers.size() == 1; }));
    EXPECT_THAT(answers, ElementsAre(Optional(200)));
    EXPECT_THAT(bench().received(), ElementsAre(body));
    bench().wait(0.3);
    EXPECT_EQ(answers.size(), 1U);
}

TEST_P(RelayTransportContract, noAnswerComesFromWithinTheCall) {
    const auto post = transport().post(bench().postURL(), "x", longTimeout, noting());
    bench().setUp(false);
    const auto refused = transport().post(bench().postURL(), "y", longTimeout, noting());
    EXPECT_THAT(answers, IsEmpty());
    EXPECT_TRUE(bench().eventually([&] { return answers.size() == 2; }));
}

TEST_P(RelayTransportContract, whenNobodyAnswersTheStatusIsAbsent) {
    bench().setUp(false);
    const auto post = transport().post(bench().postURL(), "x", longTimeout, noting());
    EXPECT_TRUE(bench().eventually([&] { return answers.size() == 1; }));
    EXPECT_THAT(answers, ElementsAre(std::nullopt));
}

TEST_P(RelayTransportContract, anAnswerIsNotWaitedForLongerThanTheLimit) {
    if (!bench().fallSilent()) GTEST_SKIP() << "the other side always answers here";
    const auto post = transport().post(bench().postURL(), "x", 0.3, noting());
    EXPECT_TRUE(bench().eventually([&] { return answers.size() == 1; }));
    EXPECT_THAT(answers, ElementsAre(std::nullopt));
}

TEST_P(RelayTransportContract, aPostThatWasCancelledIsNotAnswered) {
    auto post = transport().post(bench().postURL(), "x", longTimeout, noting());
    post.cancel();
    bench().wait(0.3);
    EXPECT_THAT(answers, IsEmpty());
}

TEST_P(RelayTransportContract, aDetachedPostIsAnswered) {
    transport().post(bench().postURL(), "x", longTimeout, noting()).detach();
    EXPECT_TRUE(bench().eventually([&] { return answers.size() == 1; }));
}

TEST_P(RelayTransportContract, anAnswerMayPostAgain) {
    Cancellable second;
    const auto first = transport().post(bench().postURL(), "first", longTimeout, [&](std::optional<int>) {
        second = transport().post(bench().postURL(), "second", longTimeout, noting());
    });
    EXPECT_TRUE(bench().eventually([&] { return answers.size() == 1; }));
    EXPECT_THAT(bench().received(), ElementsAre("first", "second"));
}

TEST_P(RelayTransportContract, aStreamGivesItsLinesInOrderWithoutTheirEnds) {
    const auto stream = listen();
    bench().sendLine(R"({"event":"keepalive"})");
    bench().sendLine("");
    bench().sendLine("زبان");
    EXPECT_TRUE(bench().eventually([&] { return lines.size() == 3; }));
    EXPECT_THAT(lines, ElementsAre(R"({"event":"keepalive"})", "", "زبان"));
    EXPECT_EQ(ends, 0);
}

TEST_P(RelayTransportContract, aStreamEndsOnceWhenTheOtherSideGoes) {
    const auto stream = listen();
    bench().sendLine("last");
    EXPECT_TRUE(bench().eventually([&] { return lines.size() == 1; }));
    bench().setUp(false);
    EXPECT_TRUE(bench().eventually([&] { return ends == 1; }));
    bench().wait(0.3);
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(bench().openStreams(), 0U);
}

TEST_P(RelayTransportContract, aStreamThatCannotBeOpenedEndsLater) {
    bench().setUp(false);
    const auto stream = transport().stream(
        bench().streamURL(), [](const std::string&) {}, [this] { ++ends; });
    EXPECT_EQ(ends, 0);
    EXPECT_TRUE(bench().eventually([&] { return ends == 1; }));
}

TEST_P(RelayTransportContract, aStreamThatWasCancelledSaysNothingMore) {
    auto stream = listen();
    bench().sendLine("under way");
    stream.cancel();
    EXPECT_TRUE(bench().eventually([&] { return bench().openStreams() == 0; }));
    bench().sendLine("later");
    bench().setUp(false);
    bench().wait(0.3);
    EXPECT_THAT(lines, IsEmpty());
    EXPECT_EQ(ends, 0);
}

TEST_P(RelayTransportContract, aLineMayCallItsOwnStreamOff) {
    Cancellable stream;
    stream = transport().stream(
        bench().streamURL(),
        [&](std::string line) {
            lines.push_back(std::move(line));
            stream.cancel();
        },
        [this] { ++ends; });
    EXPECT_TRUE(bench().eventually([&] { return bench().openStreams() == 1; }));
    bench().sendLine("first");
    bench().sendLine("second");
    EXPECT_TRUE(bench().eventually([&] { return !lines.empty(); }));
    bench().wait(0.3);
    EXPECT_THAT(lines, ElementsAre("first"));
    EXPECT_EQ(ends, 0);
}

TEST_P(RelayTransportContract, anEndMayOpenTheStreamAnew) {
    Cancellable stream;
    stream = transport().stream(
        bench().streamURL(), [](const std::string&) {},
        [&] {
            bench().setUp(true);
            stream = transport().stream(
                bench().streamURL(), [this](std::string line) { lines.push_back(std::move(line)); }, [] {});
        });
    EXPECT_TRUE(bench().eventually([&] { return bench().openStreams() == 1; }));
    bench().setUp(false);
    bench().settle();
    EXPECT_TRUE(bench().eventually([&] { return bench().openStreams() == 1; }));
    bench().sendLine("again");
    EXPECT_TRUE(bench().eventually([&] { return lines.size() == 1; }));
}

TEST_P(RelayTransportContract, callsComeOnTheMainThread) {
    std::vector<std::thread::id> threads;
    const auto note = [&] { threads.push_back(std::this_thread::get_id()); };
    const auto post = transport().post(bench().postURL(), "x", longTimeout, [note](std::optional<int>) { note(); });
    const auto stream = transport().stream(
        bench().streamURL(), [note](const std::string&) { note(); }, note);
    EXPECT_TRUE(bench().eventually([&] { return bench().openStreams() == 1 && threads.size() == 1; }));
    bench().sendLine("line");
    EXPECT_TRUE(bench().eventually([&] { return threads.size() == 2; }));
    bench().setUp(false);
    EXPECT_TRUE(bench().eventually([&] { return threads.size() == 3; }));
    EXPECT_THAT(threads, ::testing::Each(std::this_thread::get_id()));
}

} // namespace
} // namespace velmorin
