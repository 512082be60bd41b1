#include "app/platform/linux/browsers/KnownBrowsers.h"

#include "core/rules/BrowserKind.h"

#include <gtest/gtest.h>
#include <set>

namespace velmorin {
namespace {

std::string_view identityOf(std::string_view executable) {
    const auto* const browser = browserOfExecutable(executable);
    return browser != nullptr ? browser->identity : "";
}

TEST(KnownBrowsersTest, chromeIsAddressedAsTheRulesDo) {
    ASSERT_NE(browserWithIdentity(bundleID(BrowserKind::chrome)), nullptr);
    EXPECT_EQ(browserWithIdentity(bundleID(BrowserKind::chrome))->family, KnownBrowser::Family::chromium);
}

TEST(KnownBrowsersTest, everyIdentityIsFoundByItself) {
    for (const auto& browser : knownBrowsers())
        EXPECT_EQ(browserWithIdentity(browser.identity), &browser) << browser.identity;
}

TEST(KnownBrowsersTest, anyOtherIdentityIsUnknown) {
    for (const auto* const identity : {"", "com.google.chrome", "com.google.Chrome ", "com.apple.Safari"})
        EXPECT_EQ(browserWithIdentity(identity), nullptr) << identity;
}

TEST(KnownBrowsersTest, noExecutableBelongsToTwoBrowsers) {
    std::set<std::string_view> names;
    for (const auto& browser : knownBrowsers()) {
        for (const auto name : browser.executables) {
            EXPECT_TRUE(names.insert(name).second) << name;
            EXPECT_EQ(browserOfExecutable(name), &browser);
        }
    }
}

TEST(KnownBrowsersTest, chromeAndChromiumAreOneWhereverTheyCameFrom) {
    for (const auto* const path :
         {"/usr/lib/chromium/chromium", "/opt/google/chrome/chrome", "/opt/google/chrome-beta/chrome",
          "/snap/chromium/2890/usr/lib/chromium-browser/chrome", "/app/extra/chrome", "chromium-browser"})
        EXPECT_EQ(identityOf(path), "com.google.Chrome") << path;
}

TEST(KnownBrowsersTest, firefoxIsOneInAllEditions) {
    for (const auto* const path :
         {"/usr/lib/firefox-esr/firefox-esr", "/usr/lib/firefox/firefox", "/app/lib/firefox/firefox-bin"})
        EXPECT_EQ(identityOf(path), "org.mozilla.firefox") << path;
}

TEST(KnownBrowsersTest, aBrowserThatWasUpdatedWhileItRanIsStillOne) {
    EXPECT_EQ(identityOf("/usr/lib/chromium/chromium (deleted)"), "com.google.Chrome");
}

TEST(KnownBrowsersTest, otherProgramsAreNone) {
    for (const auto* const path : {"", "/", "/usr/lib/chromium/chrome_crashpad_handler", "/usr/bin/chromiumx",
                                   "/usr/lib/chromium/", "/usr/lib/firefox-esr/crashhelper"})
        EXPECT_EQ(identityOf(path), "") << path;
}

} // namespace
} // namespace velmorin
