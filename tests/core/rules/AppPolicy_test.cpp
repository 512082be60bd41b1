#include "core/rules/AppPolicy.h"

#include "core/foundation/RawValue.h"
#include "core/rules/BrowserKind.h"

#include <gtest/gtest.h>

namespace velmorin {
namespace {

const AppPolicy nothingAllowed{{}, "com.kestrava.velmorin", std::nullopt};

TEST(AppPolicyTest, withNothingToBlockEveryApplicationPasses) {
    const AppPolicy policy{{}, std::nullopt, AppPolicy::BundleIDs{}};
    EXPECT_TRUE(policy.isAllowed("org.example.game"));
    EXPECT_TRUE(policy.isAllowed(std::nullopt));
}

TEST(AppPolicyTest, anApplicationWithoutAnIdentifierPassesOnlyWhereSomeAreBlocked) {
    const AppPolicy someBlocked{{}, std::nullopt, AppPolicy::BundleIDs{"org.example.game"}};
    EXPECT_TRUE(someBlocked.isAllowed(std::nullopt));
    EXPECT_FALSE(nothingAllowed.isAllowed(std::nullopt));
}

TEST(AppPolicyTest, withNothingAllowedThisProgramAndTheTwelvePartsOfTheSystemPass) {
    EXPECT_TRUE(nothingAllowed.isAllowed("com.kestrava.velmorin"));
    EXPECT_EQ(AppPolicy::systemExempt.size(), 12U);
    for (const auto bundleID : AppPolicy::systemExempt)
        EXPECT_TRUE(nothingAllowed.isAllowed(bundleID)) << bundleID;
    for (const auto bundleID : AppPolicy::escapeHatches)
        EXPECT_FALSE(nothingAllowed.isAllowed(bundleID)) << bundleID;
    EXPECT_FALSE(nothingAllowed.isAllowed("org.example.game"));
    EXPECT_FALSE(nothingAllowed.isAllowed(""));
}

TEST(AppPolicyTest, withoutAnIdentifierOfItsOwnOnlyTheProgramIsForeign) {
    const AppPolicy policy{{"org.example.editor"}, std::nullopt, std::nullopt};
    EXPECT_TRUE(policy.isAllowed("org.example.editor"));
    EXPECT_FALSE(policy.isAllowed("com.kestrava.velmorin"));
}

TEST(AppPolicyTest, theFileManagerAndThisProgramAreBlockedWhereTheyAreListed) {
    const AppPolicy policy{{"com.apple.finder"},
                           "com.kestrava.velmorin",
                           AppPolicy::BundleIDs{"com.apple.finder", "com.kestrava.velmorin"}};
    EXPECT_FALSE(policy.isAllowed("com.apple.finder"));
    EXPECT_FALSE(policy.isAllowed("com.kestrava.velmorin"));
    EXPECT_TRUE(policy.isAllowed("com.apple.dock"));
}

TEST(AppPolicyTest, identifiersAreComparedExactly) {
    const AppPolicy policy{{"org.example.Editor"}, "com.kestrava.velmorin", std::nullopt};
    for (const char* other : {"org.example.editor", " org.example.Editor", "org.example.Editor ", "com.apple.Finder",
                              "com.kestrava.Velmorin"}) {
        EXPECT_FALSE(policy.isAllowed(other)) << other;
    }
}

TEST(AppPolicyTest, escapeHatchesAndUnsupportedBrowsersDoNotChangeTheAnswer) {
    EXPECT_EQ(AppPolicy::escapeHatches.size(), 8U);
    EXPECT_EQ(unsupportedBrowsers.size(), 6U);
    const auto expectBoth = [](std::string_view bundleID) {
        const AppPolicy policy{{std::string{bundleID}}, std::nullopt, std::nullopt};
        EXPECT_TRUE(policy.isAllowed(bundleID)) << bundleID;
        EXPECT_FALSE(nothingAllowed.isAllowed(bundleID)) << bundleID;
    };
    for (const auto bundleID : AppPolicy::escapeHatches)
        expectBoth(bundleID);
    for (const auto bundleID : unsupportedBrowsers)
        expectBoth(bundleID);
}

TEST(BrowserKindTest, onlyTheExactIdentifierIsABrowser) {
    EXPECT_EQ(browserKind("com.google.Chrome"), BrowserKind::chrome);
    EXPECT_EQ(browserKind("com.apple.Safari"), BrowserKind::safari);
    for (const char* other : {"com.google.chrome", "com.google.Chrome.canary", "", "chrome"}) {
        EXPECT_FALSE(browserKind(other)) << other;
    }
    EXPECT_EQ(displayName(BrowserKind::chrome), "Chrome");
    EXPECT_EQ(displayName(BrowserKind::safari), "Safari");
    EXPECT_EQ(rawValue(BrowserKind::chrome), "chrome");
    EXPECT_EQ(rawValue(BrowserKind::safari), "safari");
    EXPECT_EQ(allCases<BrowserKind>(), (std::array{BrowserKind::chrome, BrowserKind::safari}));
}

} // namespace
} // namespace velmorin
