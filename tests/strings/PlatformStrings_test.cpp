#include "app/strings/PlatformStrings.h"

#include "core/foundation/RawValue.h"
#include "tests/support/TextRules.h"

#include <gmock/gmock.h>

namespace velmorin {
namespace {

constexpr std::string_view inserted = "chrome://x";

std::vector<std::string> allTexts(const PlatformStrings& strings) {
    return {strings.setUpBrowser(inserted),
            strings.openPage(inserted),
            std::string{strings.switchOnDeveloperMode},
            strings.loadFolder(inserted),
            std::string{strings.allowInPrivateWindows},
            std::string{strings.checkAfterwards},
            std::string{strings.copyAddress},
            std::string{strings.copyFolder},
            std::string{strings.notIntroduced}};
}

TEST(PlatformStringsTest, everyTextIsThereInEachLanguageAndKeepsItsRules) {
    for (const auto language : allCases<AppLanguage>()) {
        for (const auto& text : allTexts(PlatformStrings::of(language))) {
            EXPECT_FALSE(text.empty());
            EXPECT_THAT(brokenRules(language, text), testing::IsEmpty()) << text;
        }
    }
}

TEST(PlatformStringsTest, whatIsInsertedIsThere) {
    for (const auto language : allCases<AppLanguage>()) {
        const auto& strings = PlatformStrings::of(language);
        EXPECT_THAT(strings.setUpBrowser(inserted), testing::HasSubstr(inserted));
        EXPECT_THAT(strings.openPage(inserted), testing::HasSubstr(inserted));
        EXPECT_THAT(strings.loadFolder(inserted), testing::HasSubstr(inserted));
    }
}

TEST(PlatformStringsTest, addressesAmongPersianWordsKeepTheirDirection) {
    EXPECT_THAT(PlatformStrings::persian.openPage("a"), testing::StartsWith("\u2066a\u2069"));
    EXPECT_THAT(PlatformStrings::persian.loadFolder("/a"), testing::EndsWith("\u2066/a\u2069"));
}

} // namespace
} // namespace velmorin
