// A file system that is really full: a small one in memory, mounted for a process of its own. Linux only.

#include "core/session/SessionRecord.h"
#include "core/store/JSONStore.h"
#include "core/store/PosixFiles.h"
#include "tests/support/SampleHistory.h"
#include "tests/support/TemporaryDirectory.h"

#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmorin {
namespace {

using History = std::vector<SessionRecord>;

/// Ends the child process with a line that says what was expected.
void require(bool condition, const char* expectation) {
    if (condition) return;
    std::cerr << "in the child process: " << expectation << " (errno " << errno << ")\n";
    ::_exit(1);
}

/// What the child process ends with on a machine that lets nobody mount anything.
constexpr int noMounts = 77;

/// Makes this process see mounts of its own, with a small file system at `directory`. An ordinary user may do so only
/// as the root of a namespace of users; some containers let nobody.
bool mountSmallFileSystem(const std::filesystem::path& directory) {
    const auto user = std::to_string(::geteuid());
    const auto group = std::to_string(::getegid());
    if (::geteuid() == 0) {
        if (::unshare(CLONE_NEWNS) != 0) return false;
    } else {
        if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
        std::ofstream{"/proc/self/uid_map"} << "0 " + user + " 1";
        std::ofstream{"/proc/self/setgroups"} << "deny";
        std::ofstream{"/proc/self/gid_map"} << "0 " + group + " 1";
    }
    // Mounts stay in this process.
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("tmpfs", directory.c_str(), "tmpfs", 0, "size=256k") == 0;
}

void fill(const std::filesystem::path& path) {
    std::ofstream file{path, std::ios::binary};
    while (file << std::string(4096, 'x') << std::flush) {
    }
}

void storeOnAFullDisk(const std::filesystem::path& directory) {
    if (!mountSmallFileSystem(directory)) ::_exit(noMounts);

    PosixFiles files;
    const JSONStore store{directory, files};
    const auto small = sampleHistory(100);
    require(store.save(small, "history.json"), "a small history fits");
    store.appendLine("first", "events.log");

    const auto large = sampleHistory(5'000);
    require(!store.save(large, "history.json"), "a history larger than the disk is not saved");
    require(store.load<History>("history.json") == small, "the old history is still there");
    require(!files.size(directory / "history.json.tmp"), "what was half written is gone");
    require(store.save(small, "history.json"), "there is room again");

    fill(directory / "filler");
    require(!store.save(small, "history.json"), "nothing is saved on a full disk");
    require(store.load<History>("history.json") == small, "the old history is still there when the disk is full");
    store.appendLine(std::string(8192, '.'), "events.log");
    require(files.read(directory / "events.log")->starts_with("first\n"), "the log keeps what it had");

    store.remove("filler");
    require(store.save(sampleHistory(101), "history.json"), "with room again the next save succeeds");
    require(store.load<History>("history.json") == sampleHistory(101), "and is what is read");
}

TEST(FullDiskTest, aFullFileSystemLeavesTheOldFile) {
    const TemporaryDirectory directory;
    const pid_t child = ::fork();
    ASSERT_NE(child, -1);
    if (child == 0) {
        storeOnAFullDisk(directory.path());
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == noMounts) GTEST_SKIP() << "this machine lets no process mount a file system";
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

} // namespace
} // namespace velmorin
