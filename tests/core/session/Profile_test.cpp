#include "core/session/Profile.h"

#include "core/foundation/JSONCoding.h"
#include "tests/support/Plans.h"

#include <gtest/gtest.h>

namespace velmorin {
namespace {

TEST(ProfileTest, aNewProfileAllowsNothingAndHasTheDefaultTimings) {
    const Profile profile{"Work", SessionMode::deep};
    EXPECT_EQ(profile.name, "Work");
    EXPECT_EQ(profile.mode, SessionMode::deep);
    EXPECT_TRUE(profile.allowedApps.empty());
    EXPECT_TRUE(profile.allowedDomains.empty());
    EXPECT_EQ(profile.pomodoro, (PomodoroConfig{25, 5, 15, 4, 4}));
    EXPECT_EQ(profile.deep, (DeepConfig{180, 60, 5}));
    EXPECT_TRUE(profile.hasDefaultTimings());
}

TEST(ProfileTest, eachNewProfileHasAnIDOfItsOwn) {
    EXPECT_NE(Profile("a", SessionMode::deep).id, Profile("a", SessionMode::deep).id);
}

TEST(ProfileTest, thePlanIsThatOfTheSelectedMode) {
    Profile profile{"Work", SessionMode::pomodoro};
    EXPECT_EQ(text(profile.segments()), "W25 S5 W25 S5 W25 S5 W25 L15");
    profile.mode = SessionMode::deep;
    EXPECT_EQ(text(profile.segments()), "W60 B5 W60 B5 W50");
}

TEST(ProfileTest, aChangedDeepConfigCountsAlsoWhileTheModeIsPomodoro) {
    for (const auto mode : allCases<SessionMode>()) {
        Profile profile{"Work", mode};
        profile.deep.totalMinutes = 181;
        EXPECT_FALSE(profile.hasDefaultTimings());
    }
}

TEST(ProfileTest, everyOneOfTheEightTimingsCounts) {
    const auto changed = [](auto change) {
        Profile profile{"Work", SessionMode::pomodoro};
        change(profile);
        return !profile.hasDefaultTimings();
    };
    EXPECT_TRUE(changed([](Profile& profile) { ++profile.pomodoro.workMinutes; }));
    EXPECT_TRUE(changed([](Profile& profile) { ++profile.pomodoro.shortBreakMinutes; }));
    EXPECT_TRUE(changed([](Profile& profile) { ++profile.pomodoro.longBreakMinutes; }));
    EXPECT_TRUE(changed([](Profile& profile) { ++profile.pomodoro.cyclesBeforeLongBreak; }));
    EXPECT_TRUE(changed([](Profile& profile) { ++profile.pomodoro.totalCycles; }));
    EXPECT_TRUE(changed([](Profile& profile) { ++profile.deep.totalMinutes; }));
    EXPECT_TRUE(changed([](Profile& profile) { ++profile.deep.breakEveryMinutes; }));
    EXPECT_TRUE(changed([](Profile& profile) { ++profile.deep.breakMinutes; }));
}

TEST(ProfileTest, resetTimingsBringsTheDefaultsBackAndTouchesNothingElse) {
    Profile profile{"Work", SessionMode::deep};
    profile.allowedApps = {{"org.example.editor", "Editor"}};
    profile.allowedDomains = {"example.org"};
    const Profile before = profile;
    profile.pomodoro = {1, 2, 3, 4, 5};
    profile.deep = {0, -1, 2};
    profile.resetTimings();
    EXPECT_TRUE(profile.hasDefaultTimings());
    EXPECT_EQ(profile, before);
}

TEST(ProfileTest, aStoredZeroStaysAZero) {
    Profile profile{"Work", SessionMode::pomodoro};
    profile.pomodoro = {0, 0, 0, 0, 0};
    profile.deep = {-1, 0, 0};
    EXPECT_EQ(decodeJSON<Profile>(*encodeJSON(profile)), profile);
}

TEST(ProfileTest, aProfileLackingOneKeyDoesNotDecode) {
    const std::string whole = *encodeJSON(Profile{"Work", SessionMode::deep});
    ASSERT_TRUE(decodeJSON<Profile>(whole));
    for (const char* key :
         {"id", "name", "allowedApps", "allowedDomains", "mode", "pomodoro", "deep", "workMinutes", "breakMinutes"}) {
        std::string lacking = whole;
        const auto place = lacking.find('"' + std::string{key} + '"');
        ASSERT_NE(place, std::string::npos) << key;
        lacking.insert(place + 1, "other ");
        EXPECT_FALSE(decodeJSON<Profile>(lacking)) << lacking;
    }
}

TEST(ProfileTest, anUnknownModeDoesNotDecode) {
    std::string text = *encodeJSON(Profile{"Work", SessionMode::deep});
    text.replace(text.find(R"("mode":"deep")"), 13, R"("mode":"Deep")");
    EXPECT_FALSE(decodeJSON<Profile>(text));
}

} // namespace
} // namespace velmorin
