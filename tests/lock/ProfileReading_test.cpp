#include "app/lock/ProfileReading.h"

#include "core/foundation/JSONArguments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::string complaint(const std::string& json) {
    try {
        readProfile(json, "work");
    } catch (const MalformedInput& wrong) {
        return wrong.what();
    }
    return "";
}

TEST(ProfileReadingTest, whatIsLeftOutHasItsDefault) {
    const auto profile = readProfile(R"({"mode":"deep","deep":{"totalMinutes":25}})", "writing");
    EXPECT_EQ(profile.name, "writing");
    EXPECT_EQ(profile.mode, SessionMode::deep);
    EXPECT_EQ(profile.deep.totalMinutes, 25);
    EXPECT_EQ(profile.deep.breakMinutes, Profile("", SessionMode::deep).deep.breakMinutes);
}

TEST(ProfileReadingTest, aMemberThatIsNotKnownIsNamed) {
    EXPECT_THAT(complaint(R"({"alowedApps":[]})"), HasSubstr("alowedApps"));
    EXPECT_THAT(complaint(R"({"deep":{"totalMinuts":1}})"), HasSubstr("totalMinuts"));
    EXPECT_THAT(complaint(R"({"pomodoro":{"work":1}})"), HasSubstr("work"));
}

TEST(ProfileReadingTest, aMemberOfTheWrongTypeIsNamed) {
    EXPECT_THAT(complaint(R"({"mode":"depp"})"), HasSubstr("mode"));
    EXPECT_THAT(complaint(R"({"allowedApps":["xterm"]})"), HasSubstr("allowedApps"));
    EXPECT_THAT(complaint(R"({"allowedDomains":"example.org"})"), HasSubstr("allowedDomains"));
    EXPECT_NE(complaint("[]"), "");
    EXPECT_NE(complaint(R"({"deep":{"totalMinutes":"5"}})"), "");
}

TEST(ProfileReadingTest, aSiteMayBeGivenAsAnAddress) {
    EXPECT_THAT(readProfile(R"({"allowedDomains":["https://www.example.org/page"]})", "").allowedDomains,
                ElementsAre("example.org"));
    EXPECT_THAT(complaint(R"({"allowedDomains":["not a site"]})"), HasSubstr("not a site"));
}

} // namespace
} // namespace velmorin
