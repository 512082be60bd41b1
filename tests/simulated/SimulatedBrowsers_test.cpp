#include "app/platform/simulated/SimulatedBrowsers.h"

#include "tests/simulated/WorldTest.h"

#include <csignal>
#include <gmock/gmock.h>
#include <optional>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr auto chrome = BrowserKind::chrome;
constexpr auto safari = BrowserKind::safari;

class SimulatedBrowsersTest : public WorldTest {
protected:
    /// Sends a script and gives where its result will be.
    std::shared_ptr<std::optional<ScriptResult>> send(const std::string& script, double timeout = 10) {
        auto result = std::make_shared<std::optional<ScriptResult>>();
        browsers.run(SimulatedBrowsers::scriptTool, {"-e", script}, timeout,
                     [result](ScriptResult given) { *result = std::move(given); });
        return result;
    }
    std::string output(const std::shared_ptr<std::optional<ScriptResult>>& result) {
        return *result ? (*result)->output : "no result";
    }

    SimulatedBrowsers& browsers = desktop.browsers;
    const std::string list = BrowserScripts::listTabs(chrome);
};

TEST_F(SimulatedBrowsersTest, aBrowserThatWasToldNothingHasNoWindows) {
    const auto result = send(list);
    advance(0.09);
    EXPECT_FALSE(*result);
    desktop.time.advanceUntil(0.1);
    EXPECT_EQ(*result, (ScriptResult{0, "", ""}));
}

TEST_F(SimulatedBrowsersTest, aBrowserListsItsTabsAfterItsTime) {
    browsers.behave(chrome, {SimulatedBrowsers::Tabs{{"12", "https://a.example/"}, {"13", ""}}, 0.2});
    const auto result = send(list);
    const auto other = send(BrowserScripts::listTabs(safari));
    advance(0.1);
    EXPECT_EQ(output(other), "");
    EXPECT_FALSE(*result);
    advance(0.1);
    EXPECT_EQ(output(result), "12|||https://a.example/\n13|||\n");
}

TEST_F(SimulatedBrowsersTest, anAnswerIsFixedWhenTheScriptIsSent) {
    browsers.behave(chrome, {SimulatedBrowsers::Tabs{{"1", "https://before.example/"}}, 1});
    const auto result = send(list);
    browsers.behave(chrome, {SimulatedBrowsers::Denied{}, 5});
    advance(1);
    EXPECT_EQ(output(result), "1|||https://before.example/\n");
}

TEST_F(SimulatedBrowsersTest, aBrowserThatIsDeniedSaysSoAndOneWithoutAnswerFails) {
    browsers.behave(chrome, {SimulatedBrowsers::Denied{}});
    const auto denied = send(list);
    browsers.behave(chrome, {SimulatedBrowsers::NoAnswer{}});
    const auto silent = send(list);
    advance(0.1);
    ASSERT_TRUE(*denied && *silent);
    EXPECT_TRUE(BrowserScripts::isPermissionDenied((*denied)->error));
    EXPECT_NE((*silent)->code, 0);
    EXPECT_FALSE(BrowserScripts::isPermissionDenied((*silent)->error));
}

TEST_F(SimulatedBrowsersTest, aScriptThatOutlastsItsLimitEndsAtTheLimit) {
    browsers.behave(chrome, {SimulatedBrowsers::Tabs{{"1", "https://a.example/"}}, 5});
    const auto late = send(list, 4.5);
    const auto justInTime = send(list, 5);
    advance(4.5);
    EXPECT_EQ(*late, (ScriptResult{SIGTERM, "", ""}));
    EXPECT_FALSE(*justInTime);
    advance(0.5);
    EXPECT_EQ(output(justInTime), "1|||https://a.example/\n");
}

TEST_F(SimulatedBrowsersTest, aBlankedTabStaysBlank) {
    browsers.behave(chrome, {SimulatedBrowsers::Tabs{{"1", "https://a.example/"}, {"2", "https://b.example/"}}, 0.5});
    const auto result = send(BrowserScripts::blankTab(chrome, "2"));
    advance(0.4);
    EXPECT_EQ(browsers.tabs(chrome)[1].url, "https://b.example/");
    advance(0.1);
    EXPECT_EQ(*result, (ScriptResult{0, "", ""}));
    EXPECT_EQ(browsers.tabs(chrome), (SimulatedBrowsers::Tabs{{"1", "https://a.example/"}, {"2", "about:blank"}}));
}

TEST_F(SimulatedBrowsersTest, aStubbornTabStaysWhereItIs) {
    browsers.behave(chrome, {SimulatedBrowsers::Tabs{{"1", "https://a.example/"}}, 0.1, true});
    const auto result = send(BrowserScripts::blankTab(chrome, "1"));
    advance(1);
    EXPECT_TRUE(*result);
    EXPECT_EQ(browsers.tabs(chrome)[0].url, "https://a.example/");
}

TEST_F(SimulatedBrowsersTest, aBlankingThatOutlastsItsLimitChangesNothing) {
    browsers.behave(chrome, {SimulatedBrowsers::Tabs{{"1", "https://a.example/"}}, 6});
    const auto result = send(BrowserScripts::blankTab(chrome, "1"), 5);
    advance(10);
    EXPECT_EQ(*result, (ScriptResult{SIGTERM, "", ""}));
    EXPECT_EQ(browsers.tabs(chrome)[0].url, "https://a.example/");
}

TEST_F(SimulatedBrowsersTest, blankingOneBrowserLeavesTheOtherAlone) {
    browsers.behave(chrome, {SimulatedBrowsers::Tabs{{"1", "https://a.example/"}}});
    browsers.behave(safari, {SimulatedBrowsers::Tabs{{"1", "https://b.example/"}}});
    send(BrowserScripts::blankTab(safari, "1"));
    send(BrowserScripts::blankTab(safari, "77"));
    advance(1);
    EXPECT_EQ(browsers.tabs(chrome)[0].url, "https://a.example/");
    EXPECT_EQ(browsers.tabs(safari)[0].url, "about:blank");
}

TEST_F(SimulatedBrowsersTest, eachScriptIsAnEventAndNothingElseIs) {
    send(list, 90);
    send(BrowserScripts::blankTab(safari, "7"), 5);
    browsers.behave(chrome, {SimulatedBrowsers::Denied{}});
    browsers.start("/bin/true", {});
    browsers.runAndWait("/bin/true", {});
    advance(1);
    EXPECT_THAT(takeEvents(), ElementsAre(R"(script "kind":"chrome","timeout":90,"what":"listTabs")",
                                          R"(script "kind":"safari","timeout":5,"what":"blankTab","windowID":"7")"));
}

TEST_F(SimulatedBrowsersTest, anyOtherProgramIsNotThere) {
    const auto result = send("tell application id \"x\" to quit");
    int calls = 0;
    browsers.run("/bin/sh", {"-c", "true"}, 10, [&](const ScriptResult& given) {
        ++calls;
        EXPECT_EQ(given.code, -1);
    });
    EXPECT_FALSE(*result);
    settle();
    ASSERT_TRUE(*result);
    EXPECT_EQ((*result)->code, -1);
    EXPECT_THAT((*result)->error, HasSubstr("No such file"));
    EXPECT_EQ(calls, 1);
    EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(SimulatedBrowsersTest, whoWouldNotSayShowsNoTabs) {
    browsers.behave(chrome, {SimulatedBrowsers::NoAnswer{}});
    EXPECT_THAT(browsers.tabs(chrome), IsEmpty());
    EXPECT_THAT(browsers.tabs(safari), IsEmpty());
}

} // namespace
} // namespace velmorin
