#include "app/platform/simulated/SimulatedServices.h"

#include "app/platform/simulated/SimulatedApplication.h"
#include "tests/simulated/WorldTest.h"

#include <gmock/gmock.h>

namespace velmorin {
namespace {

using ::testing::ElementsAre;

class SimulatedServicesTest : public WorldTest {};

TEST_F(SimulatedServicesTest, soundsAndShortcutsAreEvents) {
    desktop.sounds.play("Purr", 0.3);
    desktop.shortcuts.run("Velmorin On");
    EXPECT_THAT(takeEvents(), ElementsAre(R"(sound "name":"Purr","volume":0.3)", R"(shortcut "name":"Velmorin On")"));
}

TEST_F(SimulatedServicesTest, theWatchdogsJobIsAnEventWithAllArgumentsOrNone) {
    desktop.serviceManager.install({"--watchdog", "a b"});
    EXPECT_EQ(desktop.serviceManager.job, (std::vector<std::string>{"--watchdog", "a b"}));
    desktop.serviceManager.remove();
    EXPECT_EQ(desktop.serviceManager.job, std::nullopt);
    EXPECT_THAT(takeEvents(), ElementsAre(R"(watchdog "action":"install","arguments":["--watchdog","a b"])",
                                          R"(watchdog "action":"remove","arguments":[])"));
}

TEST_F(SimulatedServicesTest, theWatchdogStartsNothingByItself) {
    desktop.serviceManager.install({"--watchdog"});
    advance(3600);
    EXPECT_TRUE(desktop.workspace.list().empty());
}

TEST(SimulatedRandomTest, oneSeedGivesTheSameBytesInEveryRun) {
    SimulatedRandom first{7};
    SimulatedRandom second{7};
    SimulatedRandom other{8};
    const Bytes drawn = first.bytes(32);
    EXPECT_EQ(drawn, second.bytes(32));
    EXPECT_NE(drawn, other.bytes(32));
    EXPECT_NE(drawn, first.bytes(32));
}

TEST(SimulatedRandomTest, theBytesDoNotDependOnHowManyAreDrawnAtOnce) {
    SimulatedRandom first{7};
    SimulatedRandom second{7};
    Bytes pieces = first.bytes(3);
    const Bytes rest = first.bytes(13);
    pieces.insert(pieces.end(), rest.begin(), rest.end());
    EXPECT_EQ(pieces, second.bytes(16));
}

TEST(SimulatedApplicationTest, aRequestToEndIsForTheOwnerToAnswer) {
    SimulatedApplication application{5, std::nullopt};
    application.terminate();
    int requests = 0;
    application.onTerminate = [&] { ++requests; };
    application.terminate();
    EXPECT_EQ(requests, 1);
    EXPECT_EQ(application.processIdentifier(), 5);
    EXPECT_EQ(application.bundleIdentifier(), std::nullopt);
}

} // namespace
} // namespace velmorin
