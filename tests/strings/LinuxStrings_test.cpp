#include "app/strings/LinuxStrings.h"

#include "app/strings/AppStringsFields.h"
#include "core/foundation/RawValue.h"
#include "tests/support/TextRules.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace velmorin {
namespace {

/// Whether a text names what only a Mac has.
bool namesTheMac(std::string_view text) {
    constexpr std::array<std::string_view, 10> words{
        "Mac",        "مک",       "⌃", "⌥", "Shortcut", "Kurzbefehl", "System Settings", "Systemeinstellungen",
        "Automation", "Set Focus"};
    return std::ranges::any_of(words, [text](auto word) { return text.find(word) != std::string_view::npos; });
}

bool isReplaced(std::string_view AppStrings::*member) {
    return std::ranges::find(LinuxStrings::replaced, member) != LinuxStrings::replaced.end();
}

TEST(LinuxStringsTest, theTableHoldsEveryTextThatNamesTheMac) {
    for (const auto language : allCases<AppLanguage>()) {
        for (const auto& field : AppStringsFields::texts) {
            if (field.name == "phoneScanHint") continue; // quotes a button of the phone's app
            const auto text = AppStrings::of(language).*field.member;
            EXPECT_EQ(namesTheMac(text), isReplaced(field.member)) << rawValue(language) << " " << field.name;
        }
    }
}

TEST(LinuxStringsTest, noTextNamesTheMacAnyMore) {
    for (const auto language : allCases<AppLanguage>()) {
        const auto& strings = LinuxStrings::of(language);
        for (const auto member : LinuxStrings::replaced) {
            EXPECT_FALSE(namesTheMac(strings.*member)) << strings.*member;
            EXPECT_NE(strings.*member, AppStrings::of(language).*member);
            EXPECT_THAT(brokenRules(language, strings.*member), testing::IsEmpty()) << strings.*member;
        }
        EXPECT_FALSE(namesTheMac(strings.noAutomation("Chrome")));
        EXPECT_THAT(strings.noAutomation("Chrome"), testing::StartsWith("Chrome ("));
    }
}

TEST(LinuxStringsTest, everythingElseStaysAsItIs) {
    for (const auto language : allCases<AppLanguage>()) {
        for (const auto& field : AppStringsFields::texts) {
            if (isReplaced(field.member)) continue;
            EXPECT_EQ(LinuxStrings::of(language).*field.member, AppStrings::of(language).*field.member) << field.name;
        }
        EXPECT_EQ(LinuxStrings::of(language).appCount(2), AppStrings::of(language).appCount(2));
    }
}

TEST(LinuxStringsTest, theKeysForAThoughtAreThoseThatTheMenuNames) {
    for (const auto language : allCases<AppLanguage>()) {
        EXPECT_THAT(LinuxStrings::of(language).menuWriteThought,
                    testing::HasSubstr(LinuxStrings::thoughtKeys(language)));
    }
}

} // namespace
} // namespace velmorin
