#include "core/rules/BrowserScripts.h"

#include <gtest/gtest.h>

namespace velmorin {
namespace {

using Tabs = std::vector<BrowserTab>;

TEST(BrowserScriptsTest, theListOfTabsIsTheSameScriptForBothBrowsersButForTheirNames) {
    EXPECT_EQ(BrowserScripts::listTabs(BrowserKind::chrome), R"(set sep to "|||"
set nl to linefeed
tell application id "com.google.Chrome"
    set out to ""
    repeat with w in windows
        try
            set out to out & (id of w as text) & sep & (URL of active tab of w) & nl
        end try
    end repeat
    return out
end tell)");
    std::string safari = BrowserScripts::listTabs(BrowserKind::safari);
    EXPECT_NE(safari.find("(URL of current tab of w)"), std::string::npos);
    safari.replace(safari.find("com.apple.Safari"), 16, "com.google.Chrome");
    safari.replace(safari.find("current tab"), 11, "active tab");
    EXPECT_EQ(safari, BrowserScripts::listTabs(BrowserKind::chrome));
}

TEST(BrowserScriptsTest, blankingNamesTheWindow) {
    EXPECT_EQ(BrowserScripts::blankTab(BrowserKind::safari, "42"), R"(tell application id "com.apple.Safari"
    repeat with w in windows
        if (id of w as text) is "42" then
            set URL of current tab of w to "about:blank"
        end if
    end repeat
end tell)");
}

TEST(BrowserScriptsTest, ofAHostileWindowIdentifierOnlyTheNumbersRemain) {
    EXPECT_EQ(BrowserScripts::blankTab(BrowserKind::chrome, "1\" then\ndo shell script \"rm 2\""),
              BrowserScripts::blankTab(BrowserKind::chrome, "12"));
    EXPECT_EQ(BrowserScripts::blankTab(BrowserKind::chrome, "\"\n\xFF"),
              BrowserScripts::blankTab(BrowserKind::chrome, ""));
    EXPECT_NE(BrowserScripts::blankTab(BrowserKind::chrome, "۱۲½Ⅳ").find("\"۱۲½Ⅳ\""), std::string::npos);
}

TEST(BrowserScriptsTest, emptyOutputHasNoTabs) {
    EXPECT_TRUE(BrowserScripts::parseTabs("").empty());
    EXPECT_TRUE(BrowserScripts::parseTabs("\n\n\r\n\v\f\u0085\u2028\u2029").empty());
}

TEST(BrowserScriptsTest, eachLineIsATabInItsOrder) {
    EXPECT_EQ(BrowserScripts::parseTabs("12|||https://example.org/\n7|||about:blank\n"),
              (Tabs{{"12", "https://example.org/"}, {"7", "about:blank"}}));
}

TEST(BrowserScriptsTest, everyEndOfALineIsOne) {
    EXPECT_EQ(BrowserScripts::parseTabs("1|||a\r\n2|||b\r3|||c\v4|||d\f5|||e\u00856|||f\u20287|||g\u20298|||h"),
              (Tabs{{"1", "a"}, {"2", "b"}, {"3", "c"}, {"4", "d"}, {"5", "e"}, {"6", "f"}, {"7", "g"}, {"8", "h"}}));
}

TEST(BrowserScriptsTest, aSecondSeparatorStaysInTheAddress) {
    EXPECT_EQ(BrowserScripts::parseTabs("1|||https://example.org/|||x"), (Tabs{{"1", "https://example.org/|||x"}}));
    EXPECT_EQ(BrowserScripts::parseTabs("1||||x"), (Tabs{{"1", "|x"}}));
}

TEST(BrowserScriptsTest, aLineWithoutASeparatorIsNoTab) {
    EXPECT_EQ(BrowserScripts::parseTabs("nonsense\n1|||a\n||\n"), (Tabs{{"1", "a"}}));
}

TEST(BrowserScriptsTest, aLineThatStartsWithTheSeparatorHasNoWindow) {
    EXPECT_EQ(BrowserScripts::parseTabs("|||a"), (Tabs{{"", "a"}}));
}

TEST(BrowserScriptsTest, aLineThatEndsWithTheSeparatorHasNoAddress) {
    EXPECT_EQ(BrowserScripts::parseTabs("1|||\n"), (Tabs{{"1", ""}}));
}

TEST(BrowserScriptsTest, nothingIsTrimmed) {
    EXPECT_EQ(BrowserScripts::parseTabs(" 1 ||| a \n"), (Tabs{{" 1 ", " a "}}));
}

TEST(BrowserScriptsTest, theRefusalIsToldByItsNumber) {
    EXPECT_TRUE(BrowserScripts::isPermissionDenied("execution error: Not authorized (-1743)"));
    EXPECT_FALSE(BrowserScripts::isPermissionDenied("execution error: 1743"));
    EXPECT_FALSE(BrowserScripts::isPermissionDenied(""));
}

} // namespace
} // namespace velmorin
