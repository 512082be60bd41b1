#include "app/strings/AppWarnings.h"

#include <gtest/gtest.h>

namespace velmorin {
namespace {

TEST(AppWarningsTest, waysOutComeBeforeBrowsersEachInTheProfilesOrder) {
    Profile profile{"Work", SessionMode::deep};
    profile.allowedApps = {{"org.mozilla.firefox", "Firefox"},
                           {"com.apple.Terminal", "Terminal"},
                           {"org.example.editor", "Editor"},
                           {"com.brave.Browser", "Brave"},
                           {"com.apple.Automator", "Automator"}};
    EXPECT_EQ(appWarnings(profile, AppStrings::english),
              (std::vector<std::string>{"“Terminal” can be used to get around the lock.",
                                        "“Automator” can be used to get around the lock.",
                                        "Sites in “Firefox” aren't controlled; only Chrome and Safari are supported.",
                                        "Sites in “Brave” aren't controlled; only Chrome and Safari are supported."}));
}

TEST(AppWarningsTest, withoutApplicationsThereIsNothingToSay) {
    EXPECT_TRUE(appWarnings(Profile{"Work", SessionMode::deep}, AppStrings::persian).empty());
}

TEST(AppWarningsTest, whatThePlatformKnowsIsAddedInTheSameOrder) {
    Profile profile{"Work", SessionMode::deep};
    profile.allowedApps = {
        {"falkon", "Falkon"}, {"xterm", "XTerm"}, {"com.apple.Terminal", "Terminal"}, {"pen", "Pen"}};
    PlatformCautions platform;
    platform.isEscapeHatch = [](std::string_view id) { return id == "xterm" || id == "com.apple.Terminal"; };
    const std::vector<std::string> hatches{"“XTerm” can be used to get around the lock.",
                                           "“Terminal” can be used to get around the lock."};
    EXPECT_EQ(appWarnings(profile, AppStrings::english, platform), hatches);
    platform.isUnsupportedBrowser = [](std::string_view id) { return id == "falkon"; };
    const auto all = appWarnings(profile, AppStrings::english, platform);
    ASSERT_EQ(all.size(), 3);
    EXPECT_EQ(all.back(), "Sites in “Falkon” aren't controlled; only Chrome and Safari are supported.");
}

} // namespace
} // namespace velmorin
