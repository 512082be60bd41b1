#include "app/engine/LaunchAgent.h"

#include "app/engine/Watchdog.h"
#include "tests/support/EngineTest.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/RecordingChildProcesses.h"

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;

using Arguments = std::vector<std::string>;

const std::string agentPath = "/home/me/Library/LaunchAgents/com.kestrava.velmorin.watchdog.plist";
const std::string bootout = "/bin/launchctl [bootout] [gui/501/com.kestrava.velmorin.watchdog]";
const std::string bootstrap = "/bin/launchctl [bootstrap] [gui/501] [" + agentPath + "]";

class LaunchAgentTest : public EngineTest {
protected:
    LaunchAgent agent(std::string bundlePath = "/Applications/Velmorin.app", std::uint32_t userID = 501) {
        return {{std::move(bundlePath), "/home/me", userID}, processes, faulty};
    }
    /// Installs, and gives the agent file then; absent without one.
    std::optional<std::string> installed(const std::string& bundlePath, const Arguments& extraArguments) {
        agent(bundlePath).install(Watchdog::launchArguments(extraArguments));
        return files.read(agentPath);
    }

    FaultyFiles faulty{files};
    RecordingChildProcesses processes;
    const Arguments arguments{"--watchdog"};
};

TEST_F(LaunchAgentTest, theAgentFileLiesInTheUsersHome) {
    EXPECT_EQ(agent().agentFile(), agentPath);
}

TEST_F(LaunchAgentTest, installingTakesTheOldAgentOutThenWritesTheFileThenStartsIt) {
    files.contents[agentPath] = "old";
    std::vector<std::string> contents;
    processes.whileWaiting = [&] { contents.push_back(files.contents.at(agentPath)); };
    agent().install(arguments);
    EXPECT_THAT(processes.lines, ElementsAre(bootout, bootstrap));
    const auto list = Watchdog::propertyList("/Applications/Velmorin.app", arguments);
    EXPECT_THAT(contents, ElementsAre("old", *list));
    EXPECT_THAT(files.contents, ElementsAre(Pair(agentPath, *list))) << "nothing else is left behind";
}

TEST_F(LaunchAgentTest, theTargetsCarryTheNumberOfTheUser) {
    agent("/A.app", 0).install(arguments);
    agent("/A.app", 4'294'967'294U).remove();
    EXPECT_THAT(processes.lines,
                ElementsAre("/bin/launchctl [bootout] [gui/0/com.kestrava.velmorin.watchdog]",
                            "/bin/launchctl [bootstrap] [gui/0] [" + agentPath + "]",
                            "/bin/launchctl [bootout] [gui/4294967294/com.kestrava.velmorin.watchdog]"));
}

TEST_F(LaunchAgentTest, aBareExecutableInstallsNothing) {
    for (const char* path : {"/usr/local/bin/Velmorin", "", "/Velmorin.app/Contents/MacOS/Velmorin", "/Velmorin.app/",
                             "/Velmorin.APP", "/Velmorin.application"}) {
        agent(path).install(arguments);
        EXPECT_THAT(processes.lines, IsEmpty()) << path;
        EXPECT_THAT(files.contents, IsEmpty()) << path;
        EXPECT_EQ(faulty.operationCount(), 0U) << path;
    }
}

TEST_F(LaunchAgentTest, aSessionOfABareExecutableRunsUnguarded) {
    launch();
    auto bare = agent("/usr/local/bin/Velmorin");
    SimulatedApplication application{4711, std::nullopt};
    const Appearance appearance;
    SessionController controller{data(),
                                 {desktop().time, desktop().time, desktop().random, desktop().workspace, application,
                                  desktop().sounds, desktop().shortcuts, bare, desktop().browsers, appearance,
                                  SimulatedBrowsers::scriptTool}};
    controller.start(profile(SessionMode::deep), "");
    EXPECT_TRUE(controller.isActive());
    EXPECT_THAT(processes.lines, IsEmpty());
    EXPECT_FALSE(files.read(agentPath));
    advance((*controller.session())->plannedEnd() - now());
    EXPECT_FALSE(controller.isActive());
    EXPECT_THAT(processes.lines, ElementsAre(bootout)) << "there is nothing to remove, which does no harm";
    EXPECT_FALSE(files.read(agentPath));
}

TEST_F(LaunchAgentTest, withoutExtraArgumentsTheCheckEndsInTheLaunchArgument) {
    EXPECT_THAT(installed("/Applications/Velmorin.app", {}).value_or(""),
                HasSubstr("<string>/usr/bin/pgrep -xq Velmorin || /usr/bin/open -g '/Applications/Velmorin.app' "
                          "--args '--watchdog'</string>"));
}

TEST_F(LaunchAgentTest, anApostropheInTheBundlePathArrivesUnharmed) {
    EXPECT_THAT(installed("/Users/o'neil/Velmorin.app", {}).value_or(""),
                HasSubstr(R"(/usr/bin/open -g '/Users/o'\''neil/Velmorin.app' --args '--watchdog'</string>)"));
    EXPECT_THAT(processes.lines, ElementsAre(bootout, bootstrap));
}

TEST_F(LaunchAgentTest, aBlankInTheBundlePathStaysInsideOneWord) {
    EXPECT_THAT(installed("/My Programs/Velmorin 2.app", {}).value_or(""),
                HasSubstr("open -g '/My Programs/Velmorin 2.app' --args"));
}

TEST_F(LaunchAgentTest, extraArgumentsWithBlanksAndApostrophesStayOneArgumentEach) {
    EXPECT_THAT(installed("/A.app", {"two words", "it's", ""}).value_or(""),
                HasSubstr(R"(--args '--watchdog' 'two words' 'it'\''s' ''</string>)"));
}

TEST_F(LaunchAgentTest, signsThatMeanSomethingInXMLAreEscaped) {
    EXPECT_THAT(installed("/a<b>&c.app", {}).value_or(""), HasSubstr("open -g '/a&lt;b&gt;&amp;c.app' --args"));
}

TEST_F(LaunchAgentTest, aPathThatNoPropertyListCanHoldLeavesEverythingAsItIs) {
    files.contents[agentPath] = "old";
    EXPECT_EQ(installed("/\x01.app", {}), "old");
    EXPECT_EQ(installed("/\xFF.app", {}), "old");
    EXPECT_EQ(installed("/A.app", {"\x02"}), "old");
    EXPECT_THAT(processes.lines, IsEmpty());
}

TEST_F(LaunchAgentTest, aDirectoryThatCannotBeMadeIsIgnored) {
    faulty.inject(FaultyFiles::Fault::failsOnce, 0);
    agent().install(arguments);
    EXPECT_THAT(processes.lines, ElementsAre(bootout, bootstrap));
    EXPECT_TRUE(files.read(agentPath));
}

TEST_F(LaunchAgentTest, aFileThatCannotBeWrittenIsNotStarted) {
    // After the directory: create, write, flush, close and rename.
    for (std::size_t operation = 1; operation <= 5; ++operation) {
        processes.lines.clear();
        files.contents = {{agentPath, "old"}};
        faulty.inject(FaultyFiles::Fault::failsOnce, operation);
        agent().install(arguments);
        EXPECT_THAT(processes.lines, ElementsAre(bootout)) << "the old one is out by then; operation " << operation;
        EXPECT_THAT(files.contents, ElementsAre(Pair(agentPath, "old"))) << operation;
    }
}

TEST_F(LaunchAgentTest, aDiskThatIsGoneLeavesTheSessionUnguarded) {
    faulty.inject(FaultyFiles::Fault::failsOn, 0);
    agent().install(arguments);
    EXPECT_THAT(processes.lines, ElementsAre(bootout));
    EXPECT_THAT(files.contents, IsEmpty());
}

TEST_F(LaunchAgentTest, installingTwiceReplacesTheAgent) {
    agent("/Old/Velmorin.app").install(arguments);
    agent("/New/Velmorin.app").install(arguments);
    EXPECT_THAT(processes.lines, ElementsAre(bootout, bootstrap, bootout, bootstrap));
    EXPECT_THAT(files.contents, ElementsAre(Pair(agentPath, *Watchdog::propertyList("/New/Velmorin.app", arguments))));
}

TEST_F(LaunchAgentTest, removingTakesTheAgentOutThenDeletesItsFile) {
    agent().install(arguments);
    processes.lines.clear();
    bool wasThere = false;
    processes.whileWaiting = [&] { wasThere = files.contents.contains(agentPath); };
    agent().remove();
    EXPECT_TRUE(wasThere);
    EXPECT_THAT(processes.lines, ElementsAre(bootout));
    EXPECT_THAT(files.contents, IsEmpty());
}

TEST_F(LaunchAgentTest, removingWithoutAnAgentDoesNoHarm) {
    files.contents["/home/me/Library/LaunchAgents/other.plist"] = "other";
    agent().remove();
    EXPECT_THAT(processes.lines, ElementsAre(bootout));
    EXPECT_EQ(files.contents.size(), 1U);
}

TEST_F(LaunchAgentTest, aBareExecutableCanStillCleanUp) {
    agent().install(arguments);
    processes.lines.clear();
    agent("/usr/local/bin/Velmorin").remove();
    EXPECT_THAT(processes.lines, ElementsAre(bootout));
    EXPECT_THAT(files.contents, IsEmpty());
}

TEST_F(LaunchAgentTest, aFileThatCannotBeDeletedIsIgnored) {
    agent().install(arguments);
    faulty.inject(FaultyFiles::Fault::failsOnce, 0);
    agent().remove();
    EXPECT_TRUE(files.read(agentPath));
    agent().remove();
    EXPECT_FALSE(files.read(agentPath));
}

} // namespace
} // namespace velmorin
