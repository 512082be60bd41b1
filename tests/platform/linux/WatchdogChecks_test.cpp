#include "app/platform/linux/services/AutostartServiceManager.h"
#include "app/platform/linux/services/UnitText.h"
#include "app/platform/linux/services/watchdog/Keeper.h"
#include "app/platform/linux/services/watchdog/ProcessLookup.h"
#include "app/platform/linux/services/watchdog/SessionEnvironment.h"
#include "tests/support/TemporaryDirectory.h"

#include <csignal>
#include <gmock/gmock.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

/// A process of a name of its own, until this goes.
class NamedProcess {
public:
    explicit NamedProcess(const std::string& name, uid_t user = ::getuid()) {
        m_process = ::fork();
        if (m_process == 0) {
            ::alarm(60);
            if (::setuid(user) != 0) ::_exit(1);
            ::prctl(PR_SET_NAME, name.c_str());
            for (;;)
                ::pause();
        }
    }
    NamedProcess(const NamedProcess&) = delete;
    NamedProcess& operator=(const NamedProcess&) = delete;
    ~NamedProcess() {
        end();
        ::waitpid(m_process, nullptr, 0);
    }
    /// It stays as one that nobody has waited for.
    void end() const {
        ::kill(m_process, SIGKILL);
        siginfo_t info{};
        ::waitid(P_PID, static_cast<id_t>(m_process), &info, WEXITED | WNOWAIT);
    }

private:
    pid_t m_process;
};

class ProcessLookupTest : public testing::Test {
protected:
    static bool finds(const std::string& name, uid_t user = ::getuid()) { return isProcessAlive(name, user); }
    /// Within a second: a process needs a moment to take its name.
    static bool comesToFind(const std::string& name) {
        for (int attempt = 0; attempt < 100 && !finds(name); ++attempt)
            ::usleep(10'000);
        return finds(name);
    }
    /// Different in each process that runs these tests.
    const std::string own = "L" + std::to_string(::getpid());
};

TEST_F(ProcessLookupTest, aProcessIsFoundByItsExactName) {
    EXPECT_FALSE(finds(own));
    const NamedProcess process{own};
    EXPECT_TRUE(comesToFind(own));
    EXPECT_FALSE(finds(own + "x"));
    EXPECT_FALSE(finds(own.substr(0, own.size() - 1)));
    EXPECT_FALSE(finds("l" + own.substr(1)));
}

TEST_F(ProcessLookupTest, aNameMayHoldWhatTheListOfProcessesIsMadeOf) {
    const auto name = own + ") (R 1";
    const NamedProcess process{name};
    EXPECT_TRUE(comesToFind(name));
    EXPECT_FALSE(finds(own));
}

TEST_F(ProcessLookupTest, ofALongNameTheBeginningCounts) {
    const auto name = (own + "-long-name-of-a-process");
    const NamedProcess process{name};
    EXPECT_TRUE(comesToFind(name));
    EXPECT_TRUE(finds(name.substr(0, longestProcessName)));
}

TEST_F(ProcessLookupTest, whatHasEndedDoesNotLiveThoughItIsListed) {
    const NamedProcess process{own};
    ASSERT_TRUE(comesToFind(own));
    process.end();
    EXPECT_FALSE(finds(own));
}

TEST_F(ProcessLookupTest, anotherUsersProcessDoesNotCount) {
    if (::getuid() != 0) GTEST_SKIP() << "only root can start a process of another user";
    constexpr uid_t other = 65534;
    const NamedProcess process{own, other};
    for (int attempt = 0; attempt < 100 && !finds(own, other); ++attempt)
        ::usleep(10'000);
    EXPECT_TRUE(finds(own, other));
    EXPECT_FALSE(finds(own));
}

TEST(SessionEnvironmentTest, whatIsWrittenIsReadAgain) {
    const Environment environment{{"A", "with = and\nlines"}, {"B", ""}, {"C", "\x80\xff"}};
    EXPECT_EQ(readEnvironment(written(environment)), environment);
    EXPECT_THAT(readEnvironment({"=bad\0none\0A=1", 13}), ElementsAre(Pair("A", "1")));
    EXPECT_THAT(readEnvironment(""), IsEmpty());
}

TEST(SessionEnvironmentTest, onlyWhatBelongsToTheSessionIsKept) {
    EXPECT_THAT(sessionPart({{"DISPLAY", ":0"}, {"SECRET", "x"}, {"XDG_DATA_HOME", "/d"}, {"LC_TIME", "C"}}),
                ElementsAre(Pair("DISPLAY", ":0"), Pair("LC_TIME", "C"), Pair("XDG_DATA_HOME", "/d")));
}

TEST(SessionEnvironmentTest, theSessionsOwnDisplayIsNeverReplaced) {
    const auto changes = changesForSession({{"DISPLAY", ":1"}, {"HOME", "/h"}},
                                           {{"DISPLAY", ":0"}, {"WAYLAND_DISPLAY", "stale"}, {"XDG_DATA_HOME", "/d"}},
                                           [](const Environment&) { return true; });
    EXPECT_EQ(changes, (EnvironmentChanges{{{"XDG_DATA_HOME", "/d"}}, {}}));
}

TEST(SessionEnvironmentTest, aDisplayThatIsGoneIsReplacedWithAllThatBelongsToIt) {
    const Environment own{{"DISPLAY", ":1"}, {"XAUTHORITY", "/old"}, {"DBUS_SESSION_BUS_ADDRESS", "b"}, {"LANG", "C"}};
    const Environment saved{{"WAYLAND_DISPLAY", "w"}, {"DBUS_SESSION_BUS_ADDRESS", "s"}, {"LANG", "de"}};
    const auto changes =
        changesForSession(own, saved, [](const Environment& asked) { return asked.contains("WAYLAND_DISPLAY"); });
    ASSERT_TRUE(changes);
    EXPECT_THAT(changes->set, ElementsAre(Pair("DBUS_SESSION_BUS_ADDRESS", "s"), Pair("WAYLAND_DISPLAY", "w")));
    EXPECT_THAT(changes->unset, ElementsAre("DISPLAY", "XAUTHORITY"));
}

TEST(SessionEnvironmentTest, withoutADisplayThereIsNoSession) {
    EXPECT_EQ(changesForSession({}, {}, [](const Environment&) { return false; }), std::nullopt);
    EXPECT_FALSE(canReachDisplay({}));
    EXPECT_FALSE(canReachDisplay({{"DISPLAY", ":54321"}, {"WAYLAND_DISPLAY", "/nowhere/w"}}));
    EXPECT_FALSE(canReachDisplay({{"DISPLAY", "none"}, {"WAYLAND_DISPLAY", std::string(500, '/')}}));
    EXPECT_TRUE(canReachDisplay({{"DISPLAY", "far.example:10.0"}})) << "another machine's is taken at its word";
}

TEST(SessionEnvironmentTest, theProgramFindsItsThingsWhereTheGuardedSessionHasThem) {
    const auto canReach = [](const Environment&) { return true; };
    const Environment own{{"DISPLAY", ":0"}, {"XDG_CONFIG_HOME", "/other"}, {"XDG_DATA_HOME", "/other"}};
    EXPECT_EQ(changesForSession(own, {{"DISPLAY", ":0"}, {"XDG_DATA_HOME", "/d"}}, canReach),
              (EnvironmentChanges{{{"XDG_DATA_HOME", "/d"}}, {"XDG_CONFIG_HOME"}}));
    EXPECT_EQ(changesForSession(own, {}, canReach), EnvironmentChanges{}) << "nothing was saved";
}

TEST(KeeperTest, aJobsWordsAreReadAsTheyWereWritten) {
    const Words words{"/path/Velmorin", "", "two words", "line\nbreak"};
    EXPECT_EQ(readWords(writtenWords(words)), words);
    EXPECT_THAT(readWords("unfinished"), IsEmpty());
}

TEST(UnitTextTest, everyWordIsQuoted) {
    EXPECT_EQ(UnitText::commandLine({"/bin/true", "", "a b", "100%", "$HOME", "\"\\'"}),
              R"("/bin/true" "" "a b" "100%%" "$$HOME" "\"\\'")");
    EXPECT_EQ(UnitText::quoted("a\nb\x7F"), R"("a\x0ab\x7f")");
}

TEST(DesktopEntryWordTest, escapesForTheCommandLineAndForTheFile) {
    EXPECT_EQ(desktopEntryWord("a b"), R"("a b")");
    EXPECT_EQ(desktopEntryWord("\"`$"), R"("\\"\\`\\$")");
    EXPECT_EQ(desktopEntryWord("\\"), R"("\\\\")");
    EXPECT_EQ(desktopEntryWord("5%\n"), R"("5%%\n")");
}

} // namespace
} // namespace velmorin
