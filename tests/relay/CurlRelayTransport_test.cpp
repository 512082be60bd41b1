#include "app/platform/linux/relay/CurlRelayTransport.h"

#include "tests/relay/UntrustedServer.h"
#include "tests/support/LoopRunner.h"
#include "tests/support/RelayServer.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <limits>
#include <optional>
#include <sstream>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::Not;
using ::testing::Optional;
using ::testing::StartsWith;

class CurlRelayTransportTest : public ::testing::Test {
protected:
    std::optional<int> post(const std::string& url, const std::string& body = "x", double timeout = 10) {
        std::optional<std::optional<int>> answer;
        const auto request = transport->post(url, body, timeout, [&](std::optional<int> status) { answer = status; });
        EXPECT_TRUE(runner.runUntil([&] { return answer.has_value(); }));
        return answer.value_or(std::nullopt);
    }
    Cancellable listen(const std::string& path = "/stream") {
        return transport->stream(
            server.url(path), [this](std::string line) { lines.push_back(std::move(line)); }, [this] { ++ends; });
    }
    bool comesTrue(const std::function<bool()>& condition) { return runner.runUntil(condition); }

    LoopRunner runner;
    RelayServer server;
    std::optional<CurlRelayTransport> transport{std::in_place};
    std::vector<std::string> lines;
    int ends = 0;
};

TEST_F(CurlRelayTransportTest, aRequestHasNoHeadersOfItsOwn) {
    EXPECT_THAT(post(server.url("/post"), "body"), Optional(200));
    std::istringstream head{server.heads.at(0)};
    std::vector<std::string> keys;
    std::string line;
    std::getline(head, line);
    EXPECT_EQ(line, "POST /post HTTP/1.1\r");
    while (std::getline(head, line))
        keys.push_back(line.substr(0, line.find(':')));
    EXPECT_THAT(keys, ElementsAre("Host", "Accept", "Content-Length"));
}

TEST_F(CurlRelayTransportTest, anEmptyOrALargeBodyArrivesWhole) {
    EXPECT_THAT(post(server.url("/post"), ""), Optional(200));
    const std::string large(2'000'000, 'x');
    EXPECT_THAT(post(server.url("/post"), large + std::string(1, '\0') + "y"), Optional(200));
    EXPECT_THAT(server.bodies, ElementsAre("", large + std::string(1, '\0') + "y"));
}

TEST_F(CurlRelayTransportTest, aCookieIsNotSentBack) {
    server.answers["/cookie"] = "HTTP/1.1 200 OK\r\nSet-Cookie: a=b\r\nContent-Length: 0\r\n\r\n";
    post(server.url("/cookie"));
    post(server.url("/cookie"));
    ASSERT_EQ(server.heads.size(), 2);
    EXPECT_EQ(server.heads[0], server.heads[1]);
}

TEST_F(CurlRelayTransportTest, aRedirectionIsAnAnswer) {
    server.answers["/moved"] = "HTTP/1.1 302 Found\r\nLocation: /post\r\nContent-Length: 0\r\n\r\n";
    EXPECT_THAT(post(server.url("/moved")), Optional(302));
    EXPECT_EQ(server.heads.size(), 1);
}

TEST_F(CurlRelayTransportTest, aRefusalIsAnAnswer) {
    server.answers["/full"] = "HTTP/1.1 429 Too Many Requests\r\nContent-Length: 0\r\n\r\n";
    EXPECT_THAT(post(server.url("/full")), Optional(429));
}

TEST_F(CurlRelayTransportTest, anAnswerThatIsNoHTTPIsNone) {
    server.answers["/nonsense"] = "\xff\xfe\r\n\r\n";
    EXPECT_EQ(post(server.url("/nonsense"), "x", 1), std::nullopt);
}

TEST_F(CurlRelayTransportTest, anAddressThatIsNoneGetsNoAnswer) {
    for (const auto* url : {"", "nonsense://x", "file:///etc/hostname", "http://", "http://[", "not an address"})
        EXPECT_EQ(post(url), std::nullopt) << url;
}

TEST_F(CurlRelayTransportTest, noTimeAtAllIsNotTakenForAllTheTimeInTheWorld) {
    server.isSilent = true;
    for (const double timeout : {0.0, -5.0, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(post(server.url("/post"), "x", timeout), std::nullopt) << timeout;
}

TEST_F(CurlRelayTransportTest, aCertificateThatNobodyVouchesForGetsNoAnswer) {
    const UntrustedServer untrusted;
    EXPECT_EQ(post(untrusted.url()), std::nullopt);
    EXPECT_FALSE(untrusted.hasBeenAsked());
}

TEST_F(CurlRelayTransportTest, aProxyOfTheEnvironmentIsNotUsed) {
    ::setenv("http_proxy", "http://127.0.0.1:1", 1);
    ::setenv("ALL_PROXY", "http://127.0.0.1:1", 1);
    EXPECT_THAT(post(server.url("/post")), Optional(200));
    ::unsetenv("http_proxy");
    ::unsetenv("ALL_PROXY");
}

TEST_F(CurlRelayTransportTest, linesComeWholeHoweverTheyArrive) {
    const auto stream = listen();
    ASSERT_TRUE(comesTrue([&] { return server.openStreams() == 1; }));
    const std::string text = "زبان\r\n\nlast\n";
    for (const char byte : text) {
        server.send({&byte, 1});
        runner.settle();
    }
    EXPECT_TRUE(comesTrue([&] { return lines.size() == 3; }));
    EXPECT_THAT(lines, ElementsAre("زبان", "", "last"));
}

TEST_F(CurlRelayTransportTest, aLineComesAsSoonAsItArrives) {
    const auto stream = listen();
    ASSERT_TRUE(comesTrue([&] { return server.openStreams() == 1; }));
    server.send("first\nsec");
    EXPECT_TRUE(comesTrue([&] { return lines.size() == 1; }));
    server.send("ond\n");
    EXPECT_TRUE(comesTrue([&] { return lines.size() == 2; }));
    EXPECT_THAT(lines, ElementsAre("first", "second"));
}

TEST_F(CurlRelayTransportTest, theLastLineOfAWholeStreamNeedsNoEnd) {
    const auto stream = listen();
    ASSERT_TRUE(comesTrue([&] { return server.openStreams() == 1; }));
    server.send("first\nlast");
    server.endStreams();
    EXPECT_TRUE(comesTrue([&] { return ends == 1; }));
    EXPECT_THAT(lines, ElementsAre("first", "last"));
}

TEST_F(CurlRelayTransportTest, halfALineOfABrokenStreamIsNoLine) {
    const auto stream = listen();
    ASSERT_TRUE(comesTrue([&] { return server.openStreams() == 1; }));
    server.send("first\nhal");
    EXPECT_TRUE(comesTrue([&] { return lines.size() == 1; }));
    server.setUp(false);
    EXPECT_TRUE(comesTrue([&] { return ends == 1; }));
    EXPECT_THAT(lines, ElementsAre("first"));
}

TEST_F(CurlRelayTransportTest, aLineWithoutEndEndsTheStream) {
    const auto stream = listen();
    ASSERT_TRUE(comesTrue([&] { return server.openStreams() == 1; }));
    const std::string piece(60'000, 'x');
    EXPECT_TRUE(comesTrue([&] {
        if (ends == 0) server.send(piece);
        return ends == 1;
    }));
    EXPECT_THAT(lines, ::testing::IsEmpty());
}

TEST_F(CurlRelayTransportTest, aRefusedStreamGivesItsTextAndEnds) {
    server.answers["/gone"] = "HTTP/1.1 404 Not Found\r\nContent-Length: 5\r\n\r\ngone\n";
    const auto stream = listen("/gone");
    EXPECT_TRUE(comesTrue([&] { return ends == 1; }));
    EXPECT_THAT(lines, ElementsAre("gone"));
}

TEST_F(CurlRelayTransportTest, aPostGoesOutWhileAStreamIsOpen) {
    const auto stream = listen();
    ASSERT_TRUE(comesTrue([&] { return server.openStreams() == 1; }));
    EXPECT_THAT(post(server.url("/post")), Optional(200));
    EXPECT_EQ(server.openStreams(), 1);
    EXPECT_EQ(ends, 0);
}

TEST_F(CurlRelayTransportTest, aLineMayEndTheTransport) {
    auto stream = transport->stream(
        server.url("/stream"),
        [this](std::string line) {
            lines.push_back(std::move(line));
            transport.reset();
        },
        [this] { ++ends; });
    ASSERT_TRUE(comesTrue([&] { return server.openStreams() == 1; }));
    server.send("first\nsecond\n");
    EXPECT_TRUE(comesTrue([&] { return server.openStreams() == 0; }));
    EXPECT_THAT(lines, ElementsAre("first"));
    EXPECT_EQ(ends, 0);
}

TEST_F(CurlRelayTransportTest, theTransportMayGoWhileRequestsAreUnderWay) {
    server.isSilent = true;
    auto posted = transport->post(server.url("/post"), "x", 10, [this](std::optional<int>) { ++ends; });
    auto stream = listen();
    ASSERT_TRUE(comesTrue([&] { return server.heads.size() == 2; }));
    transport.reset();
    posted.cancel();
    runner.run(0.1);
    EXPECT_EQ(ends, 0);
}

TEST_F(CurlRelayTransportTest, oneAnswerMayCancelAnother) {
    server.isSilent = true;
    std::optional<Cancellable> first;
    std::optional<Cancellable> second;
    int answers = 0;
    // Both are due at once.
    first = transport->post(server.url("/post"), "x", 0.2, [&](std::optional<int>) {
        ++answers;
        second.reset();
    });
    second = transport->post(server.url("/post"), "x", 0.2, [&](std::optional<int>) {
        ++answers;
        first.reset();
    });
    EXPECT_TRUE(comesTrue([&] { return answers > 0; }));
    runner.run(0.3);
    EXPECT_EQ(answers, 1);
}

} // namespace
} // namespace velmorin
