#include "app/platform/linux/applications/ProcFS.h"

#include "tests/applications/EntriesFixture.h"
#include "tests/applications/RealProcess.h"

#include <filesystem>
#include <unistd.h>

namespace velmorin {
namespace {

class ProcFSTest : public EntriesFixture {
protected:
    /// A process as /proc shows it, of user 1000.
    void process(int pid, const std::string& program) {
        const auto folder = "proc/" + std::to_string(pid);
        write(folder + "/stat",
              std::to_string(pid) + " (a) b) S 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 4711 20\n");
        write(folder + "/status", "Name:\ta\nUid:\t1000\t0\t0\t0\n");
        write(folder + "/comm", "a) b\n");
        if (!program.empty()) std::filesystem::create_symlink(program, path(folder + "/exe"));
    }
    ProcessFacts facts(int pid) {
        const auto result = ProcFS{path("proc")}.facts(pid);
        EXPECT_TRUE(result.has_value());
        return result.value_or(ProcessFacts{});
    }
};

TEST_F(ProcFSTest, aProcessTellsWhatItIs) {
    process(7, program("editor"));
    write("proc/7/cgroup", "0::/user.slice/app-x-1.scope\n");
    EXPECT_EQ(facts(7),
              (ProcessFacts{path("bin/editor"), true, false, "a) b", "/user.slice/app-x-1.scope", {}, 4711, 1000}));
}

TEST_F(ProcFSTest, aProcessThatIsGoneTellsNothing) {
    EXPECT_EQ(ProcFS{path("proc")}.facts(7), std::nullopt);
    EXPECT_EQ(ProcFS{}.facts(-1), std::nullopt);
    EXPECT_EQ(ProcFS{}.facts(0), std::nullopt);
}

TEST_F(ProcFSTest, whatIsKeptFromUsIsEmpty) {
    process(7, "");
    EXPECT_EQ(facts(7).program, "");
    EXPECT_FALSE(facts(7).isOfSystem);
}

TEST_F(ProcFSTest, aReplacedProgramKeepsItsName) {
    process(7, "/usr/bin/editor (deleted)");
    EXPECT_EQ(facts(7).program, "/usr/bin/editor");
}

TEST_F(ProcFSTest, aSandboxIsSeen) {
    process(7, "/app/bin/paint");
    write("proc/7/root/.flatpak-info", "[Application]\nname=org.example.Paint\nruntime=runtime/x\n");
    EXPECT_EQ(facts(7).flatpakID, "org.example.Paint");
    std::filesystem::remove(path("proc/7/root/.flatpak-info"));
    ASSERT_EQ(::mkfifo(path("proc/7/root/.flatpak-info").c_str(), 0600), 0);
    EXPECT_EQ(facts(7).flatpakID, std::nullopt);
}

TEST_F(ProcFSTest, aScriptIsTheProgramOfItsInterpreter) {
    process(7, "/usr/bin/python3.11");
    const auto tool = script("tool");
    using namespace std::string_literals;
    write("proc/7/cmdline", "python3\0-s\0"s + tool + "\0x\0"s);
    EXPECT_EQ(facts(7).program, tool);
    EXPECT_TRUE(facts(7).isOfSystem);
    EXPECT_TRUE(facts(7).isScript);
    write("proc/7/cmdline", "python3\0tool\0"s);
    EXPECT_EQ(facts(7).program, ""); // wherever that is
    write("proc/7/cmdline", "");
    EXPECT_EQ(facts(7).program, "");
}

TEST_F(ProcFSTest, aFileThatItsUserCouldHavePutThereIsNotTheSystems) {
    const auto own = program("editor");
    process(7, own);
    if (::chown(own.c_str(), 1000, 1000) != 0) GTEST_SKIP() << "only the administrator may give files away";
    EXPECT_FALSE(facts(7).isOfSystem);
    ASSERT_EQ(::chown(own.c_str(), 0, 0), 0);
    std::filesystem::permissions(own, std::filesystem::perms{0777});
    EXPECT_FALSE(facts(7).isOfSystem);
}

// On real processes.

TEST_F(ProcFSTest, thisProcessIsSeen) {
    const auto self = ProcFS{}.facts(::getpid());
    ASSERT_TRUE(self.has_value());
    EXPECT_EQ(self->program, std::filesystem::canonical("/proc/self/exe").string());
    EXPECT_EQ(self->userID, ::getuid());
    EXPECT_GT(self->startTime, 0);
    EXPECT_FALSE(self->shortName.empty());
    EXPECT_EQ(self->flatpakID, std::nullopt);
}

TEST_F(ProcFSTest, aRunningScriptIsSeen) {
    const auto file = script("waiting", "read line\n");
    RealProcess process{file};
    EXPECT_TRUE(
        process.eventually([&] { return ProcFS{}.facts(process.pid()).value_or(ProcessFacts{}).program == file; }));
}

} // namespace
} // namespace velmorin
