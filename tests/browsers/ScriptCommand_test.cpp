#include "app/platform/linux/browsers/ScriptCommand.h"

#include "core/rules/BrowserScripts.h"

#include <gtest/gtest.h>
#include <string>

namespace velmorin {
namespace {

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const auto place = text.find(from);
    return place == std::string::npos ? text : text.replace(place, from.size(), to);
}

const std::string list = BrowserScripts::listTabs(BrowserKind::chrome);
const std::string blank = BrowserScripts::blankTab(BrowserKind::chrome, "471100000000000000120");

TEST(ScriptCommandTest, theProgramsOwnScriptsAreUnderstood) {
    const auto listing = parseScript(list);
    ASSERT_TRUE(listing);
    EXPECT_EQ(listing->browser->identity, "com.google.Chrome");
    EXPECT_FALSE(listing->windowToBlank);

    const auto blanking = parseScript(blank);
    ASSERT_TRUE(blanking);
    EXPECT_EQ(blanking->browser->identity, "com.google.Chrome");
    EXPECT_EQ(blanking->windowToBlank, "471100000000000000120");
}

TEST(ScriptCommandTest, everyBrowserOfTheTableCanBeAddressed) {
    for (const auto& browser : knownBrowsers()) {
        for (const auto kind : {BrowserKind::chrome, BrowserKind::safari}) {
            const std::string known{bundleID(kind)};
            const auto listing =
                parseScript(replaced(BrowserScripts::listTabs(kind), known, std::string{browser.identity}));
            ASSERT_TRUE(listing) << browser.identity;
            EXPECT_EQ(listing->browser, &browser);
            const auto blanking =
                parseScript(replaced(BrowserScripts::blankTab(kind, "1"), known, std::string{browser.identity}));
            ASSERT_TRUE(blanking) << browser.identity;
            EXPECT_EQ(blanking->browser, &browser);
            EXPECT_EQ(blanking->windowToBlank, "1");
        }
    }
}

TEST(ScriptCommandTest, aWindowWithoutAnIdentifierIsTakenAsItIs) {
    const auto blanking = parseScript(BrowserScripts::blankTab(BrowserKind::chrome, ""));
    ASSERT_TRUE(blanking);
    EXPECT_EQ(blanking->windowToBlank, "");
}

TEST(ScriptCommandTest, anUnknownBrowserIsRefused) {
    EXPECT_FALSE(parseScript(BrowserScripts::listTabs(BrowserKind::safari)));
    EXPECT_FALSE(parseScript(BrowserScripts::blankTab(BrowserKind::safari, "1")));
    EXPECT_FALSE(parseScript(replaced(list, "com.google.Chrome", "")));
}

TEST(ScriptCommandTest, anyDifferenceIsRefused) {
    for (const auto& script : {list, blank}) {
        EXPECT_FALSE(parseScript(script + "\n"));
        EXPECT_FALSE(parseScript(" " + script));
        EXPECT_FALSE(parseScript(script + script));
        EXPECT_FALSE(parseScript(replaced(script, "active tab", "first tab")));
        EXPECT_FALSE(parseScript(replaced(script, "\n", "\r\n")));
        for (std::size_t length = 0; length < script.size(); ++length)
            EXPECT_FALSE(parseScript(script.substr(0, length))) << length;
    }
    EXPECT_FALSE(parseScript("do shell script \"true\""));
}

TEST(ScriptCommandTest, nothingLeavesTheQuotes) {
    const auto hostile = BrowserScripts::blankTab(BrowserKind::chrome, "1\" then quit -- \"2");
    const auto blanking = parseScript(hostile);
    ASSERT_TRUE(blanking);
    EXPECT_EQ(blanking->windowToBlank, "12");
    EXPECT_FALSE(parseScript(replaced(blank, "\"4711", "\"1\" then quit \"4711")));
}

} // namespace
} // namespace velmorin
