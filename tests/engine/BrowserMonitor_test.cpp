#include "app/engine/BrowserMonitor.h"

#include "tests/engine/EnforcementTest.h"

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class BrowserMonitorTest : public EnforcementTest {
protected:
    static constexpr const char* refusal = "execution error: Not authorized to send Apple events. (-1743)";

    BrowserMonitor& monitor(const char* scriptTool = SimulatedBrowsers::scriptTool) {
        if (!m_monitor) m_monitor.emplace(desktop().browsers, desktop().workspace, desktop().time, scriptTool);
        return *m_monitor;
    }
    void fetch(double timeout) { monitor().fetchTabs(chromeKind, timeout, keep()); }
    void requestPermission(BrowserKind kind = chromeKind) { monitor().requestPermission(kind, keep()); }
    BrowserMonitor::Completion keep() {
        return [this](BrowserResult result) { results.push_back(std::move(result)); };
    }
    static BrowserResult tabs(std::vector<BrowserTab> tabs) { return BrowserAnswer::Tabs{std::move(tabs)}; }

    std::vector<BrowserResult> results;
    std::optional<BrowserMonitor> m_monitor;
};

const BrowserResult denied = BrowserAnswer::Denied{};
const BrowserResult noAnswer = BrowserAnswer::NoAnswer{};

// --- What a result means --------------------------------------------------------------------------------------------

TEST_F(BrowserMonitorTest, aRefusalCountsFirstWhateverTheStatus) {
    for (const std::int32_t code : {0, 1, 15, -1}) {
        SCOPED_TRACE(code);
        EXPECT_EQ(browserResult({code, "", refusal}), denied);
        EXPECT_EQ(browserResult({code, "7|||https://example.org/\n", "noise -1743 noise"}), denied);
    }
}

TEST_F(BrowserMonitorTest, anyOtherFailureIsNoAnswer) {
    for (const std::int32_t code : {1, 2, 15, 255, -1}) {
        SCOPED_TRACE(code);
        EXPECT_EQ(browserResult({code, "", "execution error: -600"}), noAnswer);
        EXPECT_EQ(browserResult({code, "7|||https://example.org/\n", ""}), noAnswer);
    }
}

TEST_F(BrowserMonitorTest, theNumberOfTheRefusalCountsOnlyInTheErrors) {
    EXPECT_EQ(browserResult({0, "7|||https://example.org/-1743\n", ""}), tabs({{"7", "https://example.org/-1743"}}));
    EXPECT_EQ(browserResult({1, "-1743", ""}), noAnswer);
}

TEST_F(BrowserMonitorTest, aSuccessIsTheTabsOfItsOutputWhateverElseItSaid) {
    EXPECT_EQ(browserResult({0, "7|||https://a.example/\nnoise\n9|||\n", "a warning"}),
              tabs({{"7", "https://a.example/"}, {"9", ""}}));
}

TEST_F(BrowserMonitorTest, aBrowserWithoutWindowsHasAnswered) {
    EXPECT_EQ(browserResult({0, "", ""}), tabs({}));
}

// --- Asking ---------------------------------------------------------------------------------------------------------

TEST_F(BrowserMonitorTest, theTabsComeLaterAndOnce) {
    answer(chromeKind, Tabs{{"7", "https://a.example/"}, {"9", "https://b.example/"}}, 2);
    fetch(10);
    EXPECT_THAT(asked(), ElementsAre("chrome 10"));
    advance(1.5);
    EXPECT_THAT(results, IsEmpty());
    advance(60);
    EXPECT_THAT(results, ElementsAre(tabs({{"7", "https://a.example/"}, {"9", "https://b.example/"}})));
}

TEST_F(BrowserMonitorTest, aRefusalAndAFailureComeTheSameWay) {
    answer(chromeKind, Denied{});
    fetch(10);
    advance(1);
    answer(chromeKind, NoAnswer{});
    fetch(10);
    advance(1);
    EXPECT_THAT(results, ElementsAre(denied, noAnswer));
}

TEST_F(BrowserMonitorTest, aBrowserThatTakesTooLongDoesNotAnswer) {
    answer(chromeKind, Tabs{{"7", "https://a.example/"}}, 11);
    fetch(10);
    advance(9.5);
    EXPECT_THAT(results, IsEmpty());
    advance(0.5);
    EXPECT_THAT(results, ElementsAre(noAnswer));
    advance(60);
    EXPECT_EQ(results.size(), 1U);
}

TEST_F(BrowserMonitorTest, aRefusalThatTakesTooLongDoesNotCount) {
    answer(chromeKind, Denied{}, 11);
    fetch(10);
    advance(20);
    EXPECT_THAT(results, ElementsAre(noAnswer));
}

TEST_F(BrowserMonitorTest, withoutTheToolForScriptsThereIsNoAnswer) {
    monitor("/nowhere/osascript");
    fetch(10);
    EXPECT_THAT(results, IsEmpty()); // never from within the call
    settle();
    EXPECT_THAT(results, ElementsAre(noAnswer));
}

TEST_F(BrowserMonitorTest, aScriptThatIsRunGivesItsOwnResult) {
    answer(chromeKind, Tabs{{"7", "https://a.example/"}});
    std::vector<ScriptResult> ran;
    const auto run = [&](const std::string& script) {
        monitor().run(script, 5, [&ran](ScriptResult result) { ran.push_back(std::move(result)); });
        advance(1);
    };
    run(BrowserScripts::listTabs(chromeKind));
    run(BrowserScripts::blankTab(chromeKind, "7"));
    run("beep");
    ASSERT_EQ(ran.size(), 3U);
    EXPECT_EQ(ran[0], (ScriptResult{0, "7|||https://a.example/\n", ""}));
    EXPECT_EQ(ran[1], (ScriptResult{}));
    EXPECT_EQ(ran[2].code, -1);
    EXPECT_THAT(blanked(), ElementsAre("chrome 7"));
}

TEST_F(BrowserMonitorTest, itDoesNotLookWhetherTheBrowserRuns) {
    fetch(10);
    advance(1);
    EXPECT_THAT(asked(), ElementsAre("chrome 10"));
    EXPECT_THAT(results, ElementsAre(tabs({})));
}

TEST_F(BrowserMonitorTest, nobodyIsToldOnceItIsGone) {
    fetch(10);
    requestPermission();
    m_monitor.reset();
    advance(100);
    EXPECT_THAT(results, IsEmpty());
}

// --- Permission -----------------------------------------------------------------------------------------------------

TEST_F(BrowserMonitorTest, permissionOfARunningBrowserIsAskedForAtOnce) {
    addBrowser(chromeKind);
    desktop().workspace.installed = {chromeID};
    requestPermission();
    EXPECT_THAT(asked(), ElementsAre("chrome 90"));
    EXPECT_THAT(events("open"), IsEmpty());
    advance(0.5);
    EXPECT_THAT(results, ElementsAre(tabs({})));
}

TEST_F(BrowserMonitorTest, aBrowserThatDoesNotRunIsStartedBehindAndAskedTwoSecondsLater) {
    addEditorAndGame();
    desktop().workspace.installed = {chromeID};
    requestPermission();
    EXPECT_THAT(events("open"), ElementsAre(R"("bundleID":"com.google.Chrome")"));
    advance(1.75);
    EXPECT_FALSE(desktop().workspace.runningApplications(chromeID).empty());
    EXPECT_EQ(front(), editor);
    EXPECT_THAT(asked(), IsEmpty());
    advance(0.25);
    EXPECT_THAT(asked(), ElementsAre("chrome 90"));
    advance(0.5);
    EXPECT_THAT(results, ElementsAre(tabs({})));
}

TEST_F(BrowserMonitorTest, aBrowserThatIsNotInstalledIsAskedAtOnceAndDoesNotAnswer) {
    answer(chromeKind, NoAnswer{});
    requestPermission();
    EXPECT_THAT(events("open"), IsEmpty());
    EXPECT_THAT(asked(), ElementsAre("chrome 90"));
    advance(0.5);
    EXPECT_THAT(results, ElementsAre(noAnswer));
}

TEST_F(BrowserMonitorTest, theOtherBrowserIsNoStandIn) {
    addBrowser(chromeKind);
    desktop().workspace.installed = {safariID};
    requestPermission(safariKind);
    EXPECT_THAT(events("open"), ElementsAre(R"("bundleID":"com.apple.Safari")"));
    advance(3);
    EXPECT_THAT(asked(), ElementsAre("safari 90"));
}

TEST_F(BrowserMonitorTest, theUserHasNinetySecondsToAnswerTheDialog) {
    addBrowser(chromeKind);
    answer(chromeKind, Denied{}, 89);
    requestPermission();
    advance(89);
    EXPECT_THAT(results, ElementsAre(denied));
    answer(chromeKind, Denied{}, 91);
    requestPermission();
    advance(90);
    EXPECT_THAT(results, ElementsAre(denied, noAnswer));
}

} // namespace
} // namespace velmorin
