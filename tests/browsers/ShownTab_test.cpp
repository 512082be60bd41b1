#include "app/platform/linux/browsers/ShownTab.h"

#include "core/foundation/Text.h"
#include "core/rules/BrowserScripts.h"

#include <gtest/gtest.h>
#include <set>

namespace velmorin {
namespace {

TEST(WindowIDTest, itIsMadeOfDigitsThatSurviveTheScript) {
    const WindowID id{4711, {12, 0}};
    EXPECT_EQ(id.text(), "471100000000000000120");
    EXPECT_EQ(numbersOnly(id.text()), id.text());
}

TEST(WindowIDTest, itReadsBackAsItself) {
    for (const auto& id : {WindowID{1, {0, 0}}, WindowID{4194304, {TabPlace::lastWindow, TabPlace::lastPlace}},
                           WindowID{4711, {1171247783, 1}}})
        EXPECT_EQ(WindowID::parse(id.text()), id) << id.text();
}

TEST(WindowIDTest, noTwoWindowsShareOne) {
    std::set<std::string> ids;
    for (const pid_t host : {1, 11, 111}) {
        for (const std::int64_t window : {0, 1, 11, 110}) {
            for (const std::int64_t place : {0, 1})
                EXPECT_TRUE(ids.insert(WindowID{host, {window, place}}.text()).second);
        }
    }
}

TEST(WindowIDTest, anyOtherTextIsNone) {
    for (const auto* const text :
         {"", "1", "00000000000000010", "99999999999999999990", "000000000000000000010", "4711000000000000001x0",
          "999999999999999999999999999999", "-11000000000000000120", "471190071992547409920"})
        EXPECT_FALSE(WindowID::parse(text)) << text;
}

TEST(SafeInLineTest, anOrdinaryAddressStaysAsItIs) {
    for (const auto* const address :
         {"", "https://a.example/%0a?x=1|||y#z", "about:blank", "http://\u00e4\u200b.example/ x"})
        EXPECT_EQ(safeInLine(address), address);
}

TEST(SafeInLineTest, whateverEndsALineIsEncoded) {
    EXPECT_EQ(safeInLine("a\nb\rc\vd\fe"), "a%0Ab%0Dc%0Bd%0Ce");
    EXPECT_EQ(safeInLine("\u0085|\u2028|\u2029"), "%C2%85|%E2%80%A8|%E2%80%A9");
    EXPECT_EQ(safeInLine(std::string_view{"\0\x1f\x7f\t", 4}), "%00%1F%7F%09");
}

TEST(SafeInLineTest, aSecondTimeChangesNothing) {
    const auto once = safeInLine("http://a.example/\n\u2028%0A\xE2\x80");
    EXPECT_EQ(safeInLine(once), once);
}

TEST(SafeInLineTest, noBytesMakeASecondTab) {
    // Every pair of bytes, in the middle of what would be another line if anything ended the first.
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            std::string address = "http://a.example/";
            address += static_cast<char>(first);
            address += static_cast<char>(second);
            address += "1|||http://b.example/";
            const auto tabs = BrowserScripts::parseTabs("7|||" + safeInLine(address) + "\n");
            ASSERT_EQ(tabs.size(), 1U) << first << ' ' << second;
            EXPECT_EQ(tabs[0].windowID, "7");
        }
    }
    for (const auto* const end : {"\u2028", "\u2029", "\u0085"})
        EXPECT_EQ(BrowserScripts::parseTabs("7|||" + safeInLine(std::string{"x"} + end + "8|||y") + "\n").size(), 1U);
}

} // namespace
} // namespace velmorin
