#include "app/lock/LockOptions.h"

#include "core/foundation/JSONArguments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

LockOptions parse(const std::vector<std::string>& arguments) {
    return LockOptions::parse(arguments);
}

std::string complaint(const std::vector<std::string>& arguments) {
    try {
        parse(arguments);
    } catch (const MalformedInput& wrong) {
        return wrong.what();
    }
    return "";
}

TEST(LockOptionsTest, withoutArgumentsThereIsNothingButDefaults) {
    const auto options = parse({});
    EXPECT_FALSE(options.profile || options.launch.homeDirectory || options.launch.launchedByWatchdog);
    EXPECT_TRUE(options.returnsByItself);
    EXPECT_FALSE(options.tellsTicks || options.listsApplications || options.asksForHelp);
}

TEST(LockOptionsTest, everyOptionIsTakenInAnyOrder) {
    const auto options = parse({"--ticks", "work.json", "--intent", "to write", "--manual", "--home", "/tmp/store"});
    EXPECT_EQ(options.profile, "work.json");
    EXPECT_EQ(options.intent, "to write");
    EXPECT_EQ(options.launch.homeDirectory, "/tmp/store");
    EXPECT_TRUE(options.tellsTicks);
    EXPECT_FALSE(options.returnsByItself);
}

TEST(LockOptionsTest, theWatchdogsArgumentCountsInAnyPosition) {
    EXPECT_TRUE(parse({"--home", "/x", "--watchdog"}).launch.launchedByWatchdog);
    EXPECT_TRUE(parse({"--watchdog", "--home", "/x"}).launch.launchedByWatchdog);
}

TEST(LockOptionsTest, theWatchdogStartsTheSameAgain) {
    EXPECT_THAT(LockOptions::forWatchdog("/a folder"), ElementsAre("--home", "/a folder"));
}

TEST(LockOptionsTest, aRelativeHomeIsMeantFromWhereTheProgramWasCalled) {
    EXPECT_TRUE(parse({"--home", "store"}).launch.homeDirectory->is_absolute());
}

TEST(LockOptionsTest, whatMakesNoSenseIsNamed) {
    EXPECT_THAT(complaint({"--hom"}), HasSubstr("--hom"));
    EXPECT_THAT(complaint({"--home"}), HasSubstr("--home"));
    EXPECT_THAT(complaint({"--intent"}), HasSubstr("--intent"));
    EXPECT_THAT(complaint({"one.json", "two.json"}), HasSubstr("two.json"));
}

TEST(LockOptionsTest, theHelpNamesEveryOption) {
    for (const auto* option :
         {"--intent", "--home", "--manual", "--ticks", "--applications", "--catalogue", "--watchdog", "--help"})
        EXPECT_THAT(LockOptions::usage(), HasSubstr(option));
}

} // namespace
} // namespace velmorin
